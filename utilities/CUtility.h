#pragma once

#include "base/CString.h"
#include "base/NamedEntity.h"
#include "utilities/UtilityGlobal.h"

#include <memory>

namespace Tevra::FileIO {
class CDataFile;
}

namespace Tevra::Data {

// A buried pipe: the inputs that specific and generic utilities share. The pipe's
// section and the criteria its results are judged against are 1-based numbers into the
// project's tables of dimensions and acceptance criteria, so that many utilities share
// one record.
class CUtility : public NamedEntity {
  public:
    // "Jointed" and "Continuous", by EUtilityType.
    static const wchar_t* const UTILITY_TYPE_STRINGS[2];

    explicit CUtility(const CString& name);
    virtual ~CUtility() = default;
    CUtility(const CUtility&) = default;
    CUtility& operator=(const CUtility&) = default;

    virtual std::unique_ptr<CUtility> Clone() const = 0;
    // The fields of this base as a nested object of the derived record: generation, name,
    // dimension, criteria, pipe length, type, show and label.
    virtual void Read(FileIO::CDataFile& file, int generation);
    virtual void Write(FileIO::CDataFile& file) const;

    // Generation of this base's part of a record.
    static int Version() { return m_iVer; }

    // The text of a type; the type is not checked.
    static CString StringifyUtilityType(UtilityGlobal::EUtilityType type) {
        return UTILITY_TYPE_STRINGS[type];
    }
    // Jointed for exactly "Jointed" and continuous for any other text: no validation,
    // deliberately, so "continuous" and "abc" both read as continuous.
    static UtilityGlobal::EUtilityType GetUtilityTypeFromCStr(const CString& text);

    // Dimension, criteria, pipe length and type back to their defaults; show, label and
    // name stay.
    void DefaultValues();

    // Number (1-based) of the project's utility dimension record.
    int GetDimension() const { return m_dimension; }
    void SetDimension(int n) { m_dimension = n; }
    // Number (1-based) of the project's acceptance criteria record.
    int GetCriteria() const { return m_criteria; }
    void SetCriteria(int n) { m_criteria = n; }
    // Length of one pipe between two joints (metres).
    double GetPipeLength() const { return m_pipeLength; }
    void SetPipeLength(double length) { m_pipeLength = length; }
    UtilityGlobal::EUtilityType GetUtilityType() const { return m_utilityType; }
    void SetUtilityType(UtilityGlobal::EUtilityType type) { m_utilityType = type; }
    bool GetShow() const { return m_show; }
    void SetShow(bool b) { m_show = b; }
    bool GetLabel() const { return m_label; }
    void SetLabel(bool b) { m_label = b; }
    UtilityGlobal::ELeverArm GetLeverArm() const { return m_leverArm; }

    bool operator==(const CUtility& o) const;
    bool operator!=(const CUtility& o) const { return !(*this == o); }

  private:
    static constexpr int m_iVer = 1;

    int m_dimension = 1;
    int m_criteria = 1;
    double m_pipeLength = 3.0;
    UtilityGlobal::EUtilityType m_utilityType = UtilityGlobal::eJointed;
    bool m_show = true;
    bool m_label = false;
    UtilityGlobal::ELeverArm m_leverArm = UtilityGlobal::eLeverArmNone;
};

} // namespace Tevra::Data
