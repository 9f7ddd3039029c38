#pragma once

#include "CDataFileError.h"
#include "CKeyParam.h"
#include "CString.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Tevra::FileIO {

// The keyed data file of a project, in either of its two forms.
//
// Binary form: the magic "ZORVOBIN" and a container version, then modules. A module is
// its key, description, record count and generation, and the byte length of its
// records; a record is its byte length and then its fields one after the other, each
// a type tag and a value. Every read is checked against the end of the record, the
// module and the file, so a truncated or corrupted file is reported, never overrun.
//
// JSON form: {"modules": [{"key", "description", "generation", "count",
// "records": [ {...}, ... ]}, ...]}, with each field under its readable member name.
// "key", "generation" and "count" may be left out of a hand-written file.
//
// Reading errors are thrown as CDataFileError, naming the file, the place (byte offset
// or JSON path, with the module) and the fault.
class CDataFile {
  public:
    enum EForm { eBinary, eJson };

    // An empty file to write, in a form.
    explicit CDataFile(EForm form);
    // A file to read, from its bytes; the form is told by the content. The name is
    // used in messages.
    static CDataFile FromBytes(std::string bytes, const std::string& name);
    // Reads a file, a device or a pipe. Content that is neither form is refused from its
    // first bytes, and a file too large for this machine's memory from its size, before
    // it is read; a JSON file may nest objects and arrays 64 levels deep at most.
    static CDataFile FromFile(const std::string& path);
    CDataFile(CDataFile&&) noexcept;
    CDataFile& operator=(CDataFile&&) noexcept;
    ~CDataFile();

    bool IsJson() const { return m_form == eJson; }
    const std::string& FileName() const { return m_name; }

    // ---- Writing ----
    void WriteModuleHeader(const CKeyParam& header);
    void EndModule();
    // A record of the current module, and nested objects inside it. Nested objects
    // exist in the JSON form only: the binary form keeps the fields flat.
    void BeginRecord(int name);
    void EndRecord();
    void BeginObject(int name);
    void EndObject();
    void WriteInt(int name, int value);
    void WriteDouble(int name, double value);
    // "YES" or "NO" in the JSON form.
    void WriteBool(int name, bool value);
    void WriteString(int name, const CString& value);
    void WriteDoubleArray(int name, const std::vector<double>& values);
    // An enumeration: its text from the table in the JSON form, its number in binary.
    void WriteEnum(int name, int value, const wchar_t* const* texts, int count);
    // The whole file as bytes.
    std::string Contents() const;
    // Writes the file to a temporary beside the target and renames it over the target
    // only once it is complete: a failed save leaves the old file untouched.
    void SaveTo(const std::string& path) const;

    // ---- Reading ----
    // The next module's header; false at the end of the file. The module's records
    // are read with BeginReadRecord(0 .. count - 1).
    bool NextModule(CKeyParam& header);
    // Records the current module holds.
    int NumRecordsInModule() const;
    // Leaves the rest of the current module unread.
    void SkipModule();
    // Ends the reading of a module; in binary, a module holding more than its records
    // is a fault.
    void EndModuleRead();
    void BeginReadRecord(int index);
    // Moves to the end of the current record, past fields that were not read.
    void EndReadRecord();
    // Enters a nested object; false if it is absent (always true in binary).
    bool EnterObject(int name, bool required = true);
    void LeaveObject();
    // Field readers. In the JSON form a field is found by name: an absent optional
    // field leaves the value as it is and answers false. In binary the fields are read
    // in order.
    bool ReadInt(int name, int& value, bool required = true);
    bool ReadDouble(int name, double& value, bool required = true);
    bool ReadBool(int name, bool& value, bool required = true);
    bool ReadString(int name, CString& value, bool required = true);
    bool ReadDoubleArray(int name, std::vector<double>& values, bool required = true);
    bool ReadEnum(int name, int& value, const wchar_t* const* texts, int count,
                  bool required = true);
    // Reports a fault at the current place.
    [[noreturn]] void Fail(const std::string& what) const;

  private:
    struct Json;

    CDataFile() = default;
    // Binary helpers.
    void PutBytes(const void* data, size_t n);
    void PutTag(uint8_t tag);
    void PutU32(uint32_t v);
    void PutStringBytes(const std::string& s);
    void Patch32(size_t at, uint64_t length);
    void Patch64(size_t at, uint64_t length);
    size_t Limit() const;
    void Need(size_t n, const char* what) const;
    uint8_t GetU8();
    uint32_t GetU32();
    int32_t GetI32();
    uint64_t GetU64();
    double GetF64();
    std::string GetStringBytes(const char* what);
    void ExpectTag(uint8_t tag, int name);
    std::string Where() const;
    // The member of the current JSON object (a rapidjson value), or null when an optional
    // one is absent; an absent required member is a fault.
    const void* JsonField(int name, bool required) const;

    EForm m_form = eBinary;
    std::string m_name;
    // Binary buffer, written or read.
    std::string m_bytes;
    size_t m_pos = 0;
    size_t m_moduleEnd = 0;
    size_t m_recordEnd = 0;
    bool m_inModule = false;
    bool m_inRecord = false;
    std::vector<size_t> m_patches; // where pending lengths go, while writing
    CString m_moduleDescription;
    int m_moduleCount = 0;
    int m_record = -1;
    int m_field = 0;
    // JSON state.
    std::unique_ptr<Json> m_json;
};

} // namespace Tevra::FileIO
