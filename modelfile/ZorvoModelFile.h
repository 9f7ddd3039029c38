#pragma once

#include "base/CDataFile.h"
#include "document/ZorvoData.h"

#include <string>
#include <vector>

namespace Tevra::FileIO {

// Loading and saving a whole project in either form of the model file.
class ZorvoModelFile {
  public:
    // Form told by the file name: ".json" is the JSON form, ".zorvo" the binary one.
    static CDataFile::EForm FormForPath(const std::string& path);

    // The project as a file of that form, in memory.
    static CDataFile Write(const Data::ZorvoData& doc, CDataFile::EForm form);
    // Writes the project's modules to a file.
    static void WriteModules(const Data::ZorvoData& doc, CDataFile& file);
    // Saves beside the target, writing as it goes, and renames over it only when
    // complete.
    static void Save(const std::string& path, const Data::ZorvoData& doc);

    // Reads a project; throws CDataFileError and leaves doc as it was on any fault.
    // Modules skipped for their later generation are reported in notes.
    static void Read(CDataFile& file, Data::ZorvoData& doc, std::vector<std::string>* notes);
    static void Load(const std::string& path, Data::ZorvoData& doc,
                     std::vector<std::string>* notes = nullptr);
};

} // namespace Tevra::FileIO
