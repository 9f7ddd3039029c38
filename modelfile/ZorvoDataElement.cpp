#include "ZorvoDataElement.h"

namespace Tevra::FileIO {

int ZorvoDataElement::WriteData(CDataFile& file) {
    const int n = GetNumDataItems();
    if (n < 1)
        return 1;
    CKeyParam key;
    key.key = GetDataKey();
    key.count = n;
    key.description = GetDataDescription();
    key.generation = GetDataBinary();
    file.WriteModuleHeader(key);
    WriteDataElement(file);
    file.EndModule();
    return 1;
}

int ZorvoDataElement::ReadData(CDataFile& file, int count, int generation) {
    return ReadDataElements(file, count, generation);
}

int ZorvoDataElement::WriteDataElementRecord(CDataFile&, int) {
    return WriteError(L"Atempting to write unknown element record");
}

int ZorvoDataElement::WriteDataElementArray(CDataFile& file) {
    // The total is taken once: a family may count its records by walking the project.
    const int total = GetTotalDataItems();
    for (int record = StartElementRecord(); record <= total; ++record)
        WriteDataElementRecord(file, record);
    return 1;
}

int ZorvoDataElement::ReadDataElement(CDataFile& file, int count, int generation) {
    if (RefusesLaterGeneration() && generation > GetDataBinary())
        return ModuleVersionError(GetDataDescription());
    return ReadDataElementArray(file, count, generation);
}

int ZorvoDataElement::ReadDataElements(CDataFile& file, int count, int generation) {
    return file.IsJson() ? ReadJsonDataElement(file, generation)
                         : ReadDataElement(file, count, generation);
}

int ZorvoDataElement::ReadDataElementArray(CDataFile& file, int count, int generation) {
    // The first failed record stops the module.
    for (int k = 0; k < count; ++k)
        if (!ReadOneRecord(file, k, generation))
            return 0;
    return 1;
}

int ZorvoDataElement::ReadJsonDataElement(CDataFile& file, int generation) {
    if (RefusesLaterGeneration() && generation > GetDataBinary())
        return ModuleVersionError(GetDataDescription());
    return ReadJsonDataElementArray(file);
}

int ZorvoDataElement::ReadJsonDataElementArray(CDataFile& file) {
    // Records of the JSON form carry no generation of their own: they get -1.
    const int n = file.NumRecordsInModule();
    for (int k = 0; k < n; ++k)
        if (!ReadOneRecord(file, k, -1))
            return 0;
    return 1;
}

int ZorvoDataElement::ReadDataElementRecord(CDataFile&, int) {
    // A read error with the writing prefix: this is the message as it has always been.
    return WriteError(L"Atempting to Read unknown element record");
}

int ZorvoDataElement::ReadOneRecord(CDataFile& file, int index, int generation) {
    try {
        file.BeginReadRecord(index);
        const int ok = ReadDataElementRecord(file, generation);
        if (ok)
            file.EndReadRecord();
        return ok;
    } catch (const CDataFileError& e) {
        return ReadError(CString(L" ") + CString::FromUtf8(e.what()));
    }
}

int ZorvoDataElement::ModuleVersionError(const CString& description) {
    CString text;
    text.Format(L"The %s format in this file is a later generation than that with which this "
                L"version of Zorvo is familiar. %s will be skipped.",
                description.GetString(), description.GetString());
    return DisplayMessageBox(text, eBoxInformation, 0);
}

int ZorvoDataElement::WriteError(const CString& text) {
    return DisplayMessageBox(CString(L"Error writing data - ") + text, eBoxPlain, 0);
}

int ZorvoDataElement::ReadError(const CString& text) {
    return DisplayMessageBox(CString(L"Error reading data -") + text, eBoxPlain, 0);
}

} // namespace Tevra::FileIO
