#pragma once

#include "base/CDlgProgress.h"
#include "base/CEvent.h"
#include "base/CMessageWindow.h"
#include "base/CString.h"

#include <vector>

namespace Tevra {

// Steps of a long walk in a check pass (locations, list entries, records) between two
// tests of the event: often enough to stop within moments, seldom enough to cost
// nothing.
constexpr int kStepsPerEventTest = 4096;

// What a check pass is given besides its message list: an optional progress dialog,
// an optional window and message number for progress, and an optional event that stops
// the pass when signalled.
struct SCheckArgs {
    CDlgProgress* dialog = nullptr;
    CMessageWindow* window = nullptr;
    unsigned int message = 0;
    CEvent* event = nullptr;
};

// The frame every check pass shares: clears the list and tells the dialog at the start,
// tests the event at each step, and at the end tells the window, a second time with the
// pass's code when it found anything.
class CCheckPass {
  public:
    // kind is "errors" or "warnings"; endCode 0 means the pass has no code of its own.
    CCheckPass(std::vector<CString>& messages, bool& cancelled, const SCheckArgs& args,
               const wchar_t* kind, long long endCode);

    // The event test: true when the pass must stop, with the cancelled flag set.
    bool Stopped();
    void Add(const CString& text) { m_messages.push_back(text); }
    bool Found() const { return m_messages.size() > m_start; }
    // Ends the pass: the window messages, and whether anything was found.
    bool Finish();
    // The same for a pass whose answer is not whether it added texts: a fault may be
    // found without a text, or a text added that is no fault. The code is sent when
    // found is true.
    bool Finish(bool found);
    // Ends a stopped pass: false, with what was found so far left in the list.
    bool Cancelled() const { return false; }

  private:
    std::vector<CString>& m_messages;
    bool& m_cancelled;
    SCheckArgs m_args;
    long long m_endCode;
    size_t m_start = 0;
};

} // namespace Tevra
