#pragma once

// A settings file of the test's own: the environment points the application's profile store
// at a file in a fresh temporary folder (which does not exist until it is written), and the
// store's warnings are collected here. Both are put back when the object goes.
#include "base/CProfileStore.h"

#include "tests/support/Host.h"

#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

namespace Tevra::Testing {

class ScratchProfile {
  public:
    ScratchProfile() : m_path(m_dir.path + "/settings.json") {
        for (auto& [name, value] : m_saved) {
            const char* v = std::getenv(name);
            value = v ? std::optional<std::string>(v) : std::nullopt;
        }
        setenv("ZORVO_PROFILE", m_path.c_str(), 1);
        CProfileStore::SetWarningHandler(
            [this](const CString& message) { m_warnings.push_back(message.ToUtf8()); });
    }
    ~ScratchProfile() {
        CProfileStore::SetWarningHandler({});
        for (const auto& [name, value] : m_saved) {
            if (value)
                setenv(name, value->c_str(), 1);
            else
                unsetenv(name);
        }
    }
    ScratchProfile(const ScratchProfile&) = delete;
    ScratchProfile& operator=(const ScratchProfile&) = delete;

    const std::string& Path() const { return m_path; }
    const std::string& Folder() const { return m_dir.path; }
    const std::vector<std::string>& Warnings() const { return m_warnings; }
    void ClearWarnings() {
        m_warnings.clear();
        CProfileStore::SetWarningHandler(
            [this](const CString& message) { m_warnings.push_back(message.ToUtf8()); });
    }

    void Write(const std::string& text) const { std::ofstream(m_path, std::ios::binary) << text; }
    std::string Read() const { return ReadFile(m_path); }

  private:
    TempDir m_dir;
    std::string m_path;
    std::vector<std::string> m_warnings;
    std::pair<const char*, std::optional<std::string>> m_saved[3] = {
        {"ZORVO_PROFILE", {}}, {"XDG_CONFIG_HOME", {}}, {"HOME", {}}};
};

} // namespace Tevra::Testing
