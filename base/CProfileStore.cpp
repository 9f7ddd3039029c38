#include "CProfileStore.h"

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include <sys/stat.h>
#include <unistd.h>

namespace Tevra {

namespace {

namespace fs = std::filesystem;

// A settings file is a few kilobytes; anything past this is not one, and is not read into
// memory whole.
constexpr std::uintmax_t kMaxSettingsBytes = 16u * 1024u * 1024u;

// The kinds of trouble, each reported once per process.
enum EWarning { eNoPlace, eUnreadable, eMalformed, eUnwritable, eWarningKinds };

struct WarningState {
    CProfileStore::WarningHandler handler;
    std::array<bool, eWarningKinds> given{};
};

WarningState& Warnings() {
    static WarningState state;
    return state;
}

void Warn(EWarning kind, const std::string& utf8) {
    WarningState& w = Warnings();
    if (w.given[kind])
        return;
    w.given[kind] = true;
    const CString message = CString::FromUtf8(utf8);
    if (w.handler)
        w.handler(message);
    else
        std::cerr << "zorvo: warning: " << utf8 << '\n';
}

const char* Env(const char* name) {
    const char* v = std::getenv(name);
    return v && *v ? v : nullptr;
}

enum class ELoad { eMissing, eLoaded, eUnusable };

// Reads and checks the whole document. A missing or blank file is an empty store; a file
// that cannot be read or is not an object of objects is unusable, with its warning.
ELoad Load(const std::string& path, rapidjson::Document& doc) {
    doc.SetObject();
    if (path.empty()) {
        Warn(eNoPlace, "there is no place for the settings file (none of ZORVO_PROFILE, "
                       "XDG_CONFIG_HOME and HOME is set): settings are neither read nor saved");
        return ELoad::eUnusable;
    }
    std::error_code ec;
    const fs::file_status status = fs::status(path, ec);
    if (status.type() == fs::file_type::not_found)
        return ELoad::eMissing;
    const std::string cannotRead = "the settings file " + path + " cannot be read";
    const std::string consequence = ": its settings are not used, and none are saved";
    if (ec || status.type() != fs::file_type::regular) {
        Warn(eUnreadable,
             cannotRead + (ec ? " (" + ec.message() + ")" : " (not a file)") + consequence);
        return ELoad::eUnusable;
    }
    const std::uintmax_t size = fs::file_size(path, ec);
    if (ec || size > kMaxSettingsBytes) {
        Warn(eUnreadable,
             cannotRead + (ec ? " (" + ec.message() + ")" : " (too large)") + consequence);
        return ELoad::eUnusable;
    }
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    if (!(in && text << in.rdbuf()) && size != 0) {
        Warn(eUnreadable, cannotRead + consequence);
        return ELoad::eUnusable;
    }
    const std::string s = text.str();
    if (s.find_first_not_of(" \t\r\n") == std::string::npos)
        return ELoad::eMissing;

    const std::string malformed = "the settings file " + path + " is not a JSON object of sections";
    const std::string untilFixed = ": its settings are not used, and none are saved until it is "
                                   "put right or removed";
    doc.Parse<rapidjson::kParseValidateEncodingFlag>(s.data(), s.size());
    if (doc.HasParseError()) {
        Warn(eMalformed, malformed + " (" + rapidjson::GetParseError_En(doc.GetParseError()) +
                             " at byte " + std::to_string(doc.GetErrorOffset()) + ")" + untilFixed);
        doc.SetObject();
        return ELoad::eUnusable;
    }
    bool objectOfObjects = doc.IsObject();
    if (objectOfObjects)
        for (const auto& m : doc.GetObject())
            objectOfObjects = objectOfObjects && m.value.IsObject();
    if (!objectOfObjects) {
        Warn(eMalformed, malformed + untilFixed);
        doc.SetObject();
        return ELoad::eUnusable;
    }
    return ELoad::eLoaded;
}

rapidjson::Value::MemberIterator Find(rapidjson::Value& object, const std::string& name) {
    return object.FindMember(rapidjson::Value(
        rapidjson::StringRef(name.data(), static_cast<rapidjson::SizeType>(name.size()))));
}

// The file that a write replaces: a settings file that is a symbolic link stays one, and
// its target is replaced.
std::string ReplacedFile(const std::string& path) {
    std::error_code ec;
    if (!fs::is_symlink(path, ec))
        return path;
    const fs::path target = fs::weakly_canonical(path, ec);
    return ec ? path : target.string();
}

// Writes the text to a temporary file beside the target and renames it over the target;
// on failure the target is as it was and the message says why.
bool ReplaceAtomically(const std::string& target, const std::string& text, std::string& why) {
    std::error_code ec;
    const fs::path parent = fs::path(target).parent_path();
    if (!parent.empty() && !fs::exists(parent, ec)) {
        fs::create_directories(parent, ec);
        if (ec) {
            why = "cannot create the folder " + parent.string() + ": " + ec.message();
            return false;
        }
    }
    std::string pattern = target + ".XXXXXX";
    const int fd = mkstemp(pattern.data());
    if (fd < 0) {
        why = std::strerror(errno);
        return false;
    }
    bool ok = true;
    for (size_t done = 0; ok && done < text.size();) {
        const ssize_t n = write(fd, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR)
            continue;
        ok = n > 0;
        done += ok ? static_cast<size_t>(n) : 0;
    }
    // The new file keeps the permissions of the one it replaces (mkstemp makes it private).
    struct stat old {};
    if (ok && stat(target.c_str(), &old) == 0)
        ok = fchmod(fd, old.st_mode & 07777) == 0;
    ok = ok && fsync(fd) == 0;
    if (!ok)
        why = std::strerror(errno);
    ok = close(fd) == 0 && ok;
    if (ok && std::rename(pattern.c_str(), target.c_str()) != 0) {
        why = std::strerror(errno);
        ok = false;
    }
    if (!ok)
        std::remove(pattern.c_str());
    return ok;
}

} // namespace

std::string CProfileStore::ApplicationPath() {
    if (const char* profile = Env("ZORVO_PROFILE"))
        return profile;
    // Relative XDG_CONFIG_HOME values are to be ignored, as the base directory rules say.
    if (const char* xdg = Env("XDG_CONFIG_HOME"); xdg && xdg[0] == '/')
        return std::string(xdg) + "/zorvo/settings.json";
    if (const char* home = Env("HOME"))
        return std::string(home) + "/.config/zorvo/settings.json";
    return {};
}

int CProfileStore::GetProfileInt(const CString& section, const CString& key,
                                 int defaultValue) const {
    rapidjson::Document doc;
    if (Load(m_path, doc) != ELoad::eLoaded)
        return defaultValue;
    const auto s = Find(doc, section.ToUtf8());
    if (s == doc.MemberEnd())
        return defaultValue;
    const auto k = Find(s->value, key.ToUtf8());
    return k != s->value.MemberEnd() && k->value.IsInt() ? k->value.GetInt() : defaultValue;
}

bool CProfileStore::WriteProfileInt(const CString& section, const CString& key, int value) {
    return WriteProfileInts(section, {{key, value}});
}

bool CProfileStore::WriteProfileInts(const CString& section,
                                     const std::vector<std::pair<CString, int>>& entries) {
    rapidjson::Document doc;
    if (Load(m_path, doc) == ELoad::eUnusable)
        return false;
    auto& alloc = doc.GetAllocator();
    const std::string sectionName = section.ToUtf8();
    auto s = Find(doc, sectionName);
    if (s == doc.MemberEnd()) {
        doc.AddMember(rapidjson::Value(sectionName.c_str(),
                                       static_cast<rapidjson::SizeType>(sectionName.size()), alloc),
                      rapidjson::Value(rapidjson::kObjectType), alloc);
        s = doc.MemberEnd() - 1;
    }
    for (const auto& [key, value] : entries) {
        const std::string keyName = key.ToUtf8();
        const auto k = Find(s->value, keyName);
        if (k != s->value.MemberEnd())
            k->value.SetInt(value);
        else
            s->value.AddMember(rapidjson::Value(keyName.c_str(),
                                                static_cast<rapidjson::SizeType>(keyName.size()),
                                                alloc),
                               rapidjson::Value(value), alloc);
    }
    rapidjson::StringBuffer buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buffer);
    doc.Accept(writer);
    std::string why;
    if (!ReplaceAtomically(ReplacedFile(m_path), std::string(buffer.GetString()) + "\n", why)) {
        Warn(eUnwritable, "the settings file " + m_path + " cannot be written (" + why +
                              "): settings are not saved");
        return false;
    }
    return true;
}

void CProfileStore::SetWarningHandler(WarningHandler handler) {
    Warnings().handler = std::move(handler);
    Warnings().given.fill(false);
}

} // namespace Tevra
