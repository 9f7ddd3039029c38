#include "ZorvoModelFile.h"

#include "modelfile/ZorvoDataHelpers.h"

namespace Tevra::FileIO {

using namespace Data;

namespace {

bool EndsWith(const std::string& s, const std::string& tail) {
    return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

} // namespace

CDataFile::EForm ZorvoModelFile::FormForPath(const std::string& path) {
    if (EndsWith(path, ".json"))
        return CDataFile::eJson;
    if (EndsWith(path, ".zorvo"))
        return CDataFile::eBinary;
    throw CDataFileError(path + ": the file name should end in .json (JSON form) or .zorvo "
                                "(binary form)");
}

void ZorvoModelFile::WriteModules(const ZorvoData& doc, CDataFile& file) {
    ZorvoData& writable = const_cast<ZorvoData&>(doc); // the helpers only read while writing
    ZorvoDataHelpers helpers(writable);
    for (const auto& h : helpers.Helpers())
        if (h->CanWrite())
            h->WriteData(file);
}

CDataFile ZorvoModelFile::Write(const ZorvoData& doc, CDataFile::EForm form) {
    CDataFile file(form);
    WriteModules(doc, file);
    return file;
}

void ZorvoModelFile::Save(const std::string& path, const ZorvoData& doc) {
    // Streamed record by record: the file is never whole in memory.
    CDataFile::Save(path, FormForPath(path), [&](CDataFile& file) { WriteModules(doc, file); });
}

void ZorvoModelFile::Read(CDataFile& file, ZorvoData& doc, std::vector<std::string>* notes) {
    ZorvoData loaded;
    ZorvoDataHelpers helpers(loaded);
    CKeyParam header;
    while (file.NextModule(header)) {
        ZorvoDataElement* helper = helpers.KeyFromHelpers(header.description);
        if (!helper)
            file.Fail("unknown module \"" + header.description.ToUtf8() + "\" (key " +
                      std::to_string(header.key) + ")");
        const bool keyGiven = !file.IsJson() || header.key != 0;
        if (keyGiven && header.key != helper->GetDataKey())
            file.Fail("module \"" + header.description.ToUtf8() + "\" has key " +
                      std::to_string(header.key) + " where " +
                      std::to_string(helper->GetDataKey()) + " belongs");
        helper->ClearMessages();
        if (!helper->ReadData(file, header.count, header.generation)) {
            for (const auto& m : helper->Messages())
                if (m.style != DataItemHelper::eBoxInformation)
                    throw CDataFileError(m.text.ToUtf8());
            file.SkipModule(); // a module refused for its generation; the others load
        }
        file.EndModuleRead();
        for (const auto& m : helper->Messages())
            if (m.style == DataItemHelper::eBoxInformation && notes)
                notes->push_back(m.text.ToUtf8());
    }
    doc = std::move(loaded);
}

void ZorvoModelFile::Load(const std::string& path, ZorvoData& doc,
                          std::vector<std::string>* notes) {
    CDataFile file = CDataFile::FromFile(path);
    Read(file, doc, notes);
}

} // namespace Tevra::FileIO
