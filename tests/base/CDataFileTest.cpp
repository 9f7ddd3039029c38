#include "base/CDataFile.h"
#include "base/SystemMemory.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <sys/resource.h>
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

std::string ReadText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// A fresh folder, removed with everything in it at the end of the test.
struct TempFolder {
    std::string path;
    TempFolder() {
        char name[] = "/tmp/zorvo-datafile-XXXXXX";
        path = mkdtemp(name);
    }
    ~TempFolder() { (void)!std::system(("rm -rf '" + path + "'").c_str()); }
    // Entries of the folder, hidden ones included.
    int Entries() const {
        int n = 0;
        DIR* d = opendir(path.c_str());
        while (dirent* e = readdir(d))
            n += std::string(e->d_name) != "." && std::string(e->d_name) != "..";
        closedir(d);
        return n;
    }
};

mode_t Mode(const std::string& path) {
    struct stat st {};
    stat(path.c_str(), &st);
    return st.st_mode & 07777;
}

bool IsLink(const std::string& path) {
    struct stat st {};
    return lstat(path.c_str(), &st) == 0 && S_ISLNK(st.st_mode);
}

const std::string kEmptyProject = "{\"modules\": []}";

} // namespace

TEST(CDataFile, RefusesWhatIsNoModelFileFromItsFirstBytes) {
    TempFolder dir;
    WriteText(dir.path + "/empty.json", "");
    WriteText(dir.path + "/bom.json", "\xEF\xBB\xBF \r\n\t" + kEmptyProject);
    WriteText(dir.path + "/list.json", "  [1, 2]");
    // Random bytes that open with a brace: no JSON holds a control character.
    WriteText(dir.path + "/noise.json", std::string("{\"a\x01\x7f", 5) + kEmptyProject);
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
        {dir.path + "/noise.json",
         dir.path + "/noise.json: the file is neither a binary model file nor a JSON object"},
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
    const auto memory = static_cast<off_t>(Tevra::SystemMemory::Bytes());
    ASSERT_EQ(truncate(path.c_str(), memory), 0);
    const std::string message = ReadFileError(path);
    const std::string head = path + ": the file is ";
    EXPECT_EQ(message.compare(0, head.size(), head), 0) << message;
    EXPECT_NE(message.find(" GB; reading it needs about "), std::string::npos) << message;
    EXPECT_NE(message.find(std::string(" GB ") + Tevra::SystemMemory::Source()), std::string::npos)
        << message;
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

TEST(CDataFile, SaveKeepsLinksAndPermissions) {
    TempFolder dir;
    const std::string file = dir.path + "/project.json";
    WriteText(file, "old");
    ASSERT_EQ(chmod(file.c_str(), 0600), 0);
    // outer -> inner (relative) -> project.json
    ASSERT_EQ(symlink("project.json", (dir.path + "/inner.json").c_str()), 0);
    ASSERT_EQ(symlink((dir.path + "/inner.json").c_str(), (dir.path + "/outer.json").c_str()), 0);

    CDataFile(CDataFile::eJson).SaveTo(dir.path + "/outer.json");
    EXPECT_TRUE(IsLink(dir.path + "/outer.json"));
    EXPECT_TRUE(IsLink(dir.path + "/inner.json"));
    EXPECT_NE(ReadText(file), "old");
    EXPECT_EQ(ReadFileError(dir.path + "/outer.json"), "");
    EXPECT_EQ(Mode(file), 0600u);

    // A new file gets what a plain create gives under the umask; a 250-character name,
    // whose temporary once passed the longest name allowed, saves like any other.
    const mode_t mask = umask(022);
    const std::string longName = dir.path + "/" + std::string(245, 'p') + ".json";
    CDataFile(CDataFile::eJson).SaveTo(longName);
    umask(mask);
    EXPECT_EQ(Mode(longName), 0644u);
    EXPECT_EQ(ReadFileError(longName), "");
    EXPECT_EQ(dir.Entries(), 4); // no temporary left behind
}

TEST(CDataFile, FailedStreamingSaveLeavesTheOldFileUntouched) {
    TempFolder dir;
    const std::string file = dir.path + "/project.zorvo";
    WriteText(file, "old");
    // A million numbers: 8 MB, written to the disk as they come.
    auto bigList = [](CDataFile& f) {
        CKeyParam header;
        header.key = 1;
        header.count = 1;
        header.description = L"Results";
        f.WriteModuleHeader(header);
        f.BeginRecord(0);
        f.BeginDoubleArray(0);
        for (int k = 0; k < 1000000; ++k)
            f.PutDouble(k);
        f.EndDoubleArray();
        f.EndRecord();
        f.EndModule();
    };

    // The system refuses a write half-way through: a file may grow to 4 MB only.
    struct rlimit old {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    void (*oldSignal)(int) = signal(SIGXFSZ, SIG_IGN); // a refused write is an error, not a signal
    struct rlimit small = old;
    small.rlim_cur = 4 << 20;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    std::string message;
    try {
        CDataFile::Save(file, CDataFile::eBinary, bigList);
    } catch (const CDataFileError& e) {
        message = e.what();
    }
    setrlimit(RLIMIT_FSIZE, &old);
    signal(SIGXFSZ, oldSignal);
    EXPECT_EQ(message,
              file + ": cannot write the file: File too large (the existing file is unchanged)");
    EXPECT_EQ(ReadText(file), "old");
    EXPECT_EQ(dir.Entries(), 1); // no temporary left behind

    // A writer that fails of itself, after some records have reached the disk.
    EXPECT_THROW(CDataFile::Save(file, CDataFile::eJson,
                                 [&](CDataFile& f) {
                                     bigList(f);
                                     f.Fail("the project is not complete");
                                 }),
                 CDataFileError);
    EXPECT_EQ(ReadText(file), "old");
    EXPECT_EQ(dir.Entries(), 1);

    // Once the system lets it, the same save streams the whole list.
    CDataFile::Save(file, CDataFile::eBinary, bigList);
    CDataFile back = CDataFile::FromFile(file);
    CKeyParam header;
    ASSERT_TRUE(back.NextModule(header));
    back.BeginReadRecord(0);
    std::vector<double> values;
    back.ReadDoubleArray(0, values);
    ASSERT_EQ(values.size(), 1000000u);
    EXPECT_EQ(values.back(), 999999.0);
}
