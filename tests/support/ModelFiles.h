#pragma once

// Saving and loading a project in memory, for the model file tests.
#include "base/CDataFile.h"
#include "base/CDataFileError.h"
#include "document/ZorvoData.h"
#include "modelfile/ZorvoModelFile.h"

#include <string>

namespace Tevra::Testing {

// The project as it comes back after a save in a form and a load.
inline Data::ZorvoData RoundTrip(const Data::ZorvoData& doc, FileIO::CDataFile::EForm form) {
    FileIO::CDataFile out = FileIO::ZorvoModelFile::Write(doc, form);
    FileIO::CDataFile in = FileIO::CDataFile::FromBytes(out.Contents(), "memory");
    Data::ZorvoData back;
    FileIO::ZorvoModelFile::Read(in, back, nullptr);
    return back;
}

// The message of the read error the bytes of a file of that name give, or "" when they
// read.
inline std::string ReadError(const std::string& bytes, const std::string& name = "model.json") {
    try {
        FileIO::CDataFile in = FileIO::CDataFile::FromBytes(bytes, name);
        Data::ZorvoData doc;
        FileIO::ZorvoModelFile::Read(in, doc, nullptr);
    } catch (const FileIO::CDataFileError& e) {
        return e.what();
    }
    return "";
}

} // namespace Tevra::Testing
