#pragma once

namespace Tevra {

// The host's progress sink. The solver sends a code (see ZorvoSolver) and, for some
// codes, a text: the stage index it concerns. The text is null otherwise.
// Ticks (code 0) arrive one at a time; other codes come from the driver thread.
class MessageHandler {
  public:
    MessageHandler() = default;
    MessageHandler(const MessageHandler&) = default;
    MessageHandler& operator=(const MessageHandler&) = default;
    virtual ~MessageHandler() = default;

    virtual void OnMessage(const wchar_t* text, long long code) = 0;
};

} // namespace Tevra
