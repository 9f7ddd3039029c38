#include "CCheckPass.h"

#include "base/CResourceStrings.h"

namespace Tevra {

namespace {
// "Checking for %s ..." shown in the progress dialog.
constexpr int kCheckingMessageID = 31587;
} // namespace

CCheckPass::CCheckPass(std::vector<CString>& messages, bool& cancelled, const SCheckArgs& args,
                       const wchar_t* kind, long long endCode)
    : m_messages(messages), m_cancelled(cancelled), m_args(args), m_endCode(endCode) {
    m_messages.clear();
    m_start = m_messages.size();
    if (m_args.dialog) {
        CString text;
        text.Format(CResourceStrings::Load(kCheckingMessageID).GetString(), kind);
        m_args.dialog->SetMessage(text);
    }
}

bool CCheckPass::Stopped() {
    if (m_args.event && m_args.event->IsSignalled()) {
        m_cancelled = true;
        return true;
    }
    return false;
}

bool CCheckPass::Finish() { return Finish(Found()); }

bool CCheckPass::Finish(bool found) {
    if (m_args.window) {
        m_args.window->SendMessageW(m_args.message, 0, 0);
        if (found && m_endCode != 0)
            m_args.window->SendMessageW(m_args.message, 0, m_endCode);
    }
    return found;
}

} // namespace Tevra
