#pragma once

#include "base/CDataFile.h"
#include "modelfile/ZorvoModelFile.h"

#include <cstdlib>
#include <string>

// Reads a model file from fuzzed bytes: it must either load or be refused with a read
// error. A project that loads must write and read back in both forms.
inline void FuzzModelFile(const std::string& bytes) {
    using namespace Tevra;
    Data::ZorvoData doc;
    try {
        FileIO::CDataFile in = FileIO::CDataFile::FromBytes(bytes, "fuzz");
        FileIO::ZorvoModelFile::Read(in, doc, nullptr);
    } catch (const FileIO::CDataFileError&) {
        return;
    }
    for (auto form : {FileIO::CDataFile::eJson, FileIO::CDataFile::eBinary}) {
        try {
            FileIO::CDataFile again = FileIO::CDataFile::FromBytes(
                FileIO::ZorvoModelFile::Write(doc, form).Contents(), "again");
            Data::ZorvoData back;
            FileIO::ZorvoModelFile::Read(again, back, nullptr);
        } catch (const FileIO::CDataFileError&) {
            std::abort(); // what was read must write out readably
        }
    }
}
