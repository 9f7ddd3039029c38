#pragma once

// A settings file of the test's own: the environment points the application's profile store
// at a file in a fresh temporary folder (which does not exist until it is written), and the
// store's warnings are collected here. Both are put back when the object goes.
#include "base/CProfileStore.h"

#include "tests/support/Host.h"

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace Tevra::Testing {

class ScratchProfile {
  public:
    ScratchProfile() : m_path(m_dir.path + "/settings.json") {
        for (SSaved& saved : m_saved)
            if (const char* v = std::getenv(saved.name)) {
                saved.present = true;
                saved.value = v;
            }
        setenv("ZORVO_PROFILE", m_path.c_str(), 1);
        CProfileStore::SetWarningHandler(
            [this](const CString& message) { m_warnings.push_back(message.ToUtf8()); });
    }
    ~ScratchProfile() {
        CProfileStore::SetWarningHandler({});
        for (const SSaved& saved : m_saved) {
            if (saved.present)
                setenv(saved.name, saved.value.c_str(), 1);
            else
                unsetenv(saved.name);
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
    // The variables the store reads, as they were before.
    struct SSaved {
        const char* name;
        bool present;
        std::string value;
    };
    SSaved m_saved[3] = {{"ZORVO_PROFILE", false, {}},
                         {"XDG_CONFIG_HOME", false, {}},
                         {"HOME", false, {}}};
};

} // namespace Tevra::Testing
