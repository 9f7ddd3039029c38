#pragma once

#include "CString.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace Tevra {

// The application's remembered settings: integers under (section, key) in a small JSON file,
// one object per section, e.g. {"BDAExportColumns": {"Name": 1, "L/H": 0}}.
//
// The file of the application is, in order of precedence, the file that the environment
// variable ZORVO_PROFILE names, $XDG_CONFIG_HOME/zorvo/settings.json (an absolute
// XDG_CONFIG_HOME only), or $HOME/.config/zorvo/settings.json.
//
// Every read and every write goes to the file itself, so that two stores of one process (or
// two processes one after the other) never see stale values. A write reads the whole
// document, changes its own keys and writes it all back, so sections and keys that this
// program does not know survive; it writes a temporary file beside the settings file and
// renames it over, so that the file is either the old one or the new one, never half of
// each. The folder is created on the first write.
//
// A file that cannot be read or is not a JSON object of objects is reported once (per kind
// of trouble, per process) through the warning handler; reads then answer their defaults.
// Writes over such a file are refused, with that warning, and answer false: the file may
// hold the user's hand edits, and it is left exactly as it is until it is put right or
// removed. A value that is not an integer reads as absent, and a write replaces it.
//
// Nothing here throws. Not safe for use from several threads at once.
class CProfileStore {
  public:
    using WarningHandler = std::function<void(const CString& message)>;

    // The store of the settings file at this path.
    explicit CProfileStore(std::string path) : m_path(std::move(path)) {}

    // The application's store, at the file that the environment gives now.
    static CProfileStore Application() { return CProfileStore(ApplicationPath()); }
    // The application's settings file as the environment gives it; empty when neither
    // ZORVO_PROFILE, XDG_CONFIG_HOME nor HOME gives a place.
    static std::string ApplicationPath();

    const std::string& Path() const { return m_path; }

    // The integer at (section, key), or the default when the file, the section or the key is
    // missing, the value is not an integer, or the file cannot be used.
    int GetProfileInt(const CString& section, const CString& key, int defaultValue) const;

    // Stores the integer at (section, key); false, with a warning, when it cannot.
    bool WriteProfileInt(const CString& section, const CString& key, int value);
    // Stores several keys of one section in one write, in the order given (new keys are
    // appended to the section in that order).
    bool WriteProfileInts(const CString& section,
                          const std::vector<std::pair<CString, int>>& entries);

    // Where warnings go; the default writes them to the standard error stream. Setting a
    // handler (an empty one restores the default) re-arms the once-only warnings.
    static void SetWarningHandler(WarningHandler handler);

  private:
    std::string m_path;
};

} // namespace Tevra
