#include "base/CProfileStore.h"

#include "tests/support/ScratchProfile.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <string>

using Tevra::CProfileStore;
using Tevra::Testing::ScratchProfile;

namespace {

// The names of the entries of a folder.
std::vector<std::string> Entries(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& e : std::filesystem::directory_iterator(folder))
        names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

void SetOrUnset(const char* name, const char* value) {
    if (value)
        setenv(name, value, 1);
    else
        unsetenv(name);
}

} // namespace

TEST(CProfileStore, LocationFromTheEnvironment) {
    const ScratchProfile restoresTheEnvironment;
    struct Case {
        const char *profile, *xdg, *home, *expected;
    } cases[] = {
        {"/p/mine.json", "/x", "/h", "/p/mine.json"},
        {nullptr, "/x", "/h", "/x/zorvo/settings.json"},
        {"", "/x", "/h", "/x/zorvo/settings.json"},                 // empty counts as unset
        {nullptr, "rel/x", "/h", "/h/.config/zorvo/settings.json"}, // relative one ignored
        {nullptr, nullptr, "/h", "/h/.config/zorvo/settings.json"},
        {nullptr, nullptr, nullptr, ""},
    };
    for (const Case& c : cases) {
        SetOrUnset("ZORVO_PROFILE", c.profile);
        SetOrUnset("XDG_CONFIG_HOME", c.xdg);
        SetOrUnset("HOME", c.home);
        EXPECT_EQ(CProfileStore::ApplicationPath(), c.expected) << c.expected;
        EXPECT_EQ(CProfileStore::Application().Path(), c.expected);
    }
}

TEST(CProfileStore, NoPlaceGivesDefaultsAndRefusesWrites) {
    ScratchProfile profile;
    for (const char* name : {"ZORVO_PROFILE", "XDG_CONFIG_HOME", "HOME"})
        unsetenv(name);
    CProfileStore store = CProfileStore::Application();
    EXPECT_EQ(store.GetProfileInt(L"S", L"k", 4), 4);
    EXPECT_FALSE(store.WriteProfileInt(L"S", L"k", 1));
    EXPECT_EQ(profile.Warnings().size(), 1u);
}

TEST(CProfileStore, FirstSaveCreatesTheFolderAndLeavesNoTemporaryFile) {
    ScratchProfile profile;
    const std::string folder = profile.Folder() + "/a/b";
    CProfileStore store(folder + "/settings.json");

    // Reads of a missing file give the default and create nothing.
    EXPECT_EQ(store.GetProfileInt(L"S", L"k", -7), -7);
    EXPECT_FALSE(std::filesystem::exists(profile.Folder() + "/a"));

    struct Case {
        const wchar_t* key;
        int value;
    } cases[] = {{L"k", 5}, {L"least", INT_MIN}, {L"most", INT_MAX}, {L"k", 0}};
    for (const Case& c : cases)
        EXPECT_TRUE(store.WriteProfileInt(L"S", c.key, c.value));
    EXPECT_EQ(store.GetProfileInt(L"S", L"k", 9), 0); // overwritten in place
    EXPECT_EQ(store.GetProfileInt(L"S", L"least", 9), INT_MIN);
    EXPECT_EQ(store.GetProfileInt(L"S", L"most", 9), INT_MAX);
    EXPECT_EQ(store.GetProfileInt(L"S", L"other", 9), 9);
    EXPECT_EQ(store.GetProfileInt(L"T", L"k", 9), 9);
    EXPECT_EQ(Entries(folder), std::vector<std::string>{"settings.json"});
    EXPECT_TRUE(profile.Warnings().empty());
}

TEST(CProfileStore, WriteKeepsWhatItDoesNotKnow) {
    ScratchProfile profile;
    const std::string before = R"({"Window": {"x": 1.5, "title": "Plan", "list": [1, 2], "n": 3},)"
                               R"( "BDAExportColumns": {"Unknown": 3, "Name": 1, "L/H": "yes"}})";
    profile.Write(before);
    CProfileStore store(profile.Path());
    // A value that is not an integer reads as absent, and a write replaces it.
    EXPECT_EQ(store.GetProfileInt(L"BDAExportColumns", L"L/H", 8), 8);
    EXPECT_TRUE(
        store.WriteProfileInts(L"BDAExportColumns", {{L"Name", 0}, {L"L/H", 1}, {L"Segment", 0}}));
    EXPECT_TRUE(store.WriteProfileInt(L"New section", L"k", 2));

    rapidjson::Document expected, got;
    expected.Parse(R"({"Window": {"x": 1.5, "title": "Plan", "list": [1, 2], "n": 3},)"
                   R"( "BDAExportColumns": {"Unknown": 3, "Name": 0, "L/H": 1, "Segment": 0},)"
                   R"( "New section": {"k": 2}})");
    const std::string after = profile.Read();
    got.Parse(after.c_str());
    ASSERT_FALSE(got.HasParseError()) << after;
    EXPECT_TRUE(got == expected) << after;
    // Members keep their order, and new ones come last.
    std::string order;
    for (const auto& m : got["BDAExportColumns"].GetObject())
        order += std::string(m.name.GetString()) + ";";
    EXPECT_EQ(order, "Unknown;Name;L/H;Segment;");
    EXPECT_TRUE(profile.Warnings().empty());
}

TEST(CProfileStore, BlankFileIsAnEmptyStore) {
    ScratchProfile profile;
    for (const char* text : {"", " \n\t\r\n"}) {
        profile.Write(text);
        CProfileStore store(profile.Path());
        EXPECT_EQ(store.GetProfileInt(L"S", L"k", 3), 3);
        EXPECT_TRUE(store.WriteProfileInt(L"S", L"k", 1));
        EXPECT_EQ(store.GetProfileInt(L"S", L"k", 3), 1);
    }
    EXPECT_TRUE(profile.Warnings().empty());
}

// A file that is not an object of sections is reported once, its settings give way to the
// defaults, and writes are refused: the file stays byte for byte as the user left it.
TEST(CProfileStore, MalformedFileIsReportedOnceAndNeverOverwritten) {
    ScratchProfile profile;
    const char* cases[] = {
        R"({"S": {"k": 1}, )",     // cut short
        R"([{"S": {"k": 1}}])",    // not an object
        R"({"S": 1, "T": {}})",    // a section that is not an object
        "{\"S\": {\"k\xff\": 1}}", // not UTF-8
        R"({"S": {"k": 1}} x)",    // trailing text
    };
    for (const char* text : cases) {
        profile.ClearWarnings();
        profile.Write(text);
        CProfileStore store(profile.Path());
        EXPECT_EQ(store.GetProfileInt(L"S", L"k", 6), 6) << text;
        EXPECT_EQ(store.GetProfileInt(L"S", L"k", 6), 6) << text;
        EXPECT_FALSE(store.WriteProfileInt(L"S", L"k", 2)) << text;
        EXPECT_FALSE(store.WriteProfileInt(L"T", L"k", 2)) << text;
        EXPECT_EQ(profile.Read(), text);
        ASSERT_EQ(profile.Warnings().size(), 1u) << text;
        EXPECT_NE(profile.Warnings()[0].find(profile.Path() + " is not a JSON object of sections"),
                  std::string::npos)
            << profile.Warnings()[0];
        EXPECT_EQ(Entries(profile.Folder()), std::vector<std::string>{"settings.json"});
    }
}

TEST(CProfileStore, UnusablePlacesAreReported) {
    ScratchProfile profile;
    // A folder where the file should be cannot be read, and is not written over.
    std::filesystem::create_directory(profile.Path());
    CProfileStore folder(profile.Path());
    EXPECT_EQ(folder.GetProfileInt(L"S", L"k", 6), 6);
    EXPECT_FALSE(folder.WriteProfileInt(L"S", L"k", 2));
    EXPECT_TRUE(std::filesystem::is_directory(profile.Path()));
    // A file where a folder should be: the write fails and says so.
    std::filesystem::remove(profile.Path());
    std::ofstream(profile.Folder() + "/plain") << "x";
    CProfileStore underFile(profile.Folder() + "/plain/settings.json");
    EXPECT_FALSE(underFile.WriteProfileInt(L"S", L"k", 2));
    ASSERT_EQ(profile.Warnings().size(), 2u);
    EXPECT_NE(profile.Warnings()[0].find("cannot be read"), std::string::npos);
    EXPECT_NE(profile.Warnings()[1].find("cannot be written"), std::string::npos);
}
