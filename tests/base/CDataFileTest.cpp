#include "base/CDataFile.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

using namespace Tevra::FileIO;

namespace {

// The message a file gives when read, or "" when it reads.
std::string ReadFileError(const std::string& path) {
    try {
        CDataFile::FromFile(path);
    } catch (const CDataFileError& e) {
        return e.what();
    }
    return "";
}

void WriteText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// A fresh folder, removed with everything in it at the end of the test.
struct TempFolder {
    std::string path;
    TempFolder() {
        char name[] = "/tmp/zorvo-datafile-XXXXXX";
        path = mkdtemp(name);
    }
    ~TempFolder() { (void)!std::system(("rm -rf '" + path + "'").c_str()); }
};

const std::string kEmptyProject = "{\"modules\": []}";

} // namespace

TEST(CDataFile, RefusesWhatIsNoModelFileFromItsFirstBytes) {
    TempFolder dir;
    WriteText(dir.path + "/empty.json", "");
    WriteText(dir.path + "/bom.json", "\xEF\xBB\xBF \r\n\t" + kEmptyProject);
    WriteText(dir.path + "/list.json", "  [1, 2]");
    struct {
        std::string path;
        std::string message; // "" when the file reads
    } cases[] = {
        // /dev/zero once read 4 GB before failing; its first byte is enough.
        {"/dev/zero", "/dev/zero: the file is neither a binary model file nor a JSON object"},
        {dir.path, dir.path + ": cannot read the file: Is a directory"},
        {dir.path + "/none.json", dir.path + "/none.json: cannot open the file: No such file or "
                                             "directory"},
        {dir.path + "/empty.json", dir.path + "/empty.json: the file is empty"},
        {dir.path + "/list.json",
         dir.path + "/list.json: the file is neither a binary model file nor a JSON object"},
        {dir.path + "/bom.json", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ReadFileError(c.path), c.message);

    // A pipe is read in chunks to its end.
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], kEmptyProject.data(), kEmptyProject.size()),
              static_cast<ssize_t>(kEmptyProject.size()));
    close(ends[1]);
    EXPECT_EQ(ReadFileError("/dev/fd/" + std::to_string(ends[0])), "");
    close(ends[0]);
}

TEST(CDataFile, RefusesAFileLargerThanTheMachineCanRead) {
    // A sparse file as large as the machine's memory: a JSON file needs several times
    // its size, so it is refused from its size without being read.
    TempFolder dir;
    const std::string path = dir.path + "/huge.json";
    WriteText(path, "{");
    const off_t memory = static_cast<off_t>(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGE_SIZE);
    ASSERT_EQ(truncate(path.c_str(), memory), 0);
    const std::string message = ReadFileError(path);
    const std::string head = path + ": the file is ";
    EXPECT_EQ(message.compare(0, head.size(), head), 0) << message;
    EXPECT_NE(message.find(" GB; reading it needs about "), std::string::npos) << message;
    EXPECT_NE(message.find(" GB this machine has"), std::string::npos) << message;
}

TEST(CDataFile, NestingIsCappedAtSixtyFourLevels) {
    // Once 52,000 nested '[' overflowed the stack of the parser.
    auto message = [](const std::string& text) {
        try {
            CDataFile::FromBytes(text, "deep.json");
        } catch (const CDataFileError& e) {
            return std::string(e.what());
        }
        return std::string();
    };
    // The object and 63 arrays make 64 levels, the most allowed: the file parses and is
    // refused only for its missing modules.
    EXPECT_EQ(message("{\"a\":" + std::string(63, '[') + std::string(63, ']') + "}"),
              "deep.json: a JSON model file needs a \"modules\" array");
    // The 64th '[' is level 65, at column 5 + 64.
    EXPECT_EQ(message("{\"a\":" + std::string(52000, '[')),
              "deep.json: line 1, column 69: not valid JSON: nested more than 64 levels deep");
}
