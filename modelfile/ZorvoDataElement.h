#pragma once

#include "base/CDataFile.h"
#include "base/DataItemHelper.h"
#include "document/ZorvoData.h"

namespace Tevra::FileIO {

// A helper of the model file: one module, its key, description, count and generation,
// and the loops that turn the document's records into the module's records and back.
// A family's helper gives its record writer and reader; the frame does the rest.
class ZorvoDataElement : public DataItemHelper {
  public:
    explicit ZorvoDataElement(Data::ZorvoData& doc) : m_doc(doc) {}

    // Writes the module; left out when it has no records. Answers 1.
    virtual int WriteData(CDataFile& file);
    // Reads the module's records; 0 when a record failed.
    virtual int ReadData(CDataFile& file, int count, int generation);

    virtual CString GetDataDescription() const = 0;
    virtual int GetDataKey() const = 0;
    virtual bool CanWrite() const { return true; }
    virtual int GetNumDataItems() const = 0;
    virtual int GetTotalDataItems() const { return GetNumDataItems(); }
    // Generation of the module's records.
    virtual int GetDataBinary() const = 0;
    // First 1-based record to write.
    virtual int StartElementRecord() const { return 1; }
    // Whether a module of a later generation is refused (with an information message)
    // rather than read.
    virtual bool RefusesLaterGeneration() const { return false; }

    virtual int WriteDataElement(CDataFile& file) { return WriteDataElementArray(file); }
    virtual int WriteDataElementRecord(CDataFile& file, int record);
    virtual int WriteDataElementArray(CDataFile& file);
    virtual int ReadDataElement(CDataFile& file, int count, int generation);
    virtual int ReadDataElements(CDataFile& file, int count, int generation);
    virtual int ReadDataElementArray(CDataFile& file, int count, int generation);
    virtual int ReadJsonDataElement(CDataFile& file, int generation);
    virtual int ReadJsonDataElementArray(CDataFile& file);
    // Reads one record and appends it; the base refuses.
    virtual int ReadDataElementRecord(CDataFile& file, int generation);

    // "The %s format in this file is a later generation ..." as an information box.
    int ModuleVersionError(const CString& description);
    int WriteError(const CString& text);
    int ReadError(const CString& text);

  protected:
    // Reads one record through ReadDataElementRecord, turning a fault of the file into
    // a read error; 0 on failure.
    int ReadOneRecord(CDataFile& file, int index, int generation);

    Data::ZorvoData& m_doc;
};

} // namespace Tevra::FileIO
