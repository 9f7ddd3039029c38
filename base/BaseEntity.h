#pragma once

namespace Tevra {

// Root of the records: a word of flags. Records are held by value in lists and never
// deleted through this base, so it carries no virtual table: a sample pays nothing.
class BaseEntity {
  public:
    explicit BaseEntity(unsigned int flags = 0) : m_flags(flags) {}

    unsigned int GetFlags() const { return m_flags; }
    void SetFlags(unsigned int flags) { m_flags = flags; }

  private:
    unsigned int m_flags;
};

} // namespace Tevra
