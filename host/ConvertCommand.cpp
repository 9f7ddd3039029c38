#include "host/HostCommands.h"

#include "modelfile/ZorvoModelFile.h"

namespace Tevra {

int ConvertCommand(HostSession& session, const std::string& in, const std::string& out) {
    Data::ZorvoData doc;
    try {
        FileIO::ZorvoModelFile::FormForPath(out); // before the reading, however long
    } catch (const FileIO::CDataFileError& e) {
        session.Fail(e.what());
        return eExitUsage;
    }
    if (!session.Load(in, doc))
        return eExitUsage;
    try {
        FileIO::ZorvoModelFile::Save(out, doc);
    } catch (const FileIO::CDataFileError& e) {
        session.Fail(e.what());
        return eExitUsage;
    }
    session.Out() << "wrote " << out << '\n';
    return eExitOk;
}

} // namespace Tevra
