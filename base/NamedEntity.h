#pragma once

#include "BaseEntity.h"
#include "CString.h"

namespace Tevra {

// A record with a name. A name may be empty: the system refers to records by number.
class NamedEntity : public BaseEntity {
  public:
    explicit NamedEntity(unsigned int flags = 0, const CString& name = CString())
        : BaseEntity(flags), m_name(name) {}

    const CString& Name() const { return m_name; }
    const CString& GetName() const { return m_name; }
    void SetName(const CString& name) { m_name = name; }
    CString& AccessName() { return m_name; }

  private:
    CString m_name;
};

} // namespace Tevra
