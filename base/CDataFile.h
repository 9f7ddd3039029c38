#pragma once

#include "CDataFileError.h"
#include "CKeyParam.h"
#include "CString.h"

#include <cstdint>
#include <functional>
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

    // An empty file to write, in a form, held in memory.
    explicit CDataFile(EForm form);
    // Saves a project as it is written, without holding the file in memory: the writer
    // is given a file of the form that streams to a temporary beside the target (the end
    // of its chain of links), which is flushed to disk and renamed over the target only
    // once the writer is done. On any failure, of the writer, of a write to the disk or
    // of the rename, the temporary is removed and the old file is left untouched.
    static void Save(const std::string& path, EForm form,
                     const std::function<void(CDataFile&)>& writer);
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
    // A list of objects under a name, in the JSON form only: each BeginObject inside it
    // opens the next element. The binary form keeps the elements' fields flat, behind a
    // count that the record writes itself.
    void BeginArray(int name);
    void EndArray();
    void WriteInt(int name, int value);
    void WriteDouble(int name, double value);
    // "YES" or "NO" in the JSON form.
    void WriteBool(int name, bool value);
    void WriteString(int name, const CString& value);
    void WriteDoubleArray(int name, const std::vector<double>& values);
    // The same list given one number at a time, for lists too long to hold twice.
    void BeginDoubleArray(int name);
    void PutDouble(double value);
    void EndDoubleArray();
    // An enumeration: its text from the table in the JSON form, its number in binary.
    void WriteEnum(int name, int value, const wchar_t* const* texts, int count);
    // The whole file as bytes. For a file being written, this ends the writing.
    std::string Contents();
    // Writes the file to a temporary beside the target and renames it over the target
    // only once it is complete: a failed save leaves the old file untouched.
    void SaveTo(const std::string& path);

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
    // JSON form: enters a list of objects and answers its number of elements, -1 when an
    // optional list is absent; LeaveObject leaves it. Binary form: answers -1.
    int EnterArray(int name, bool required = true);
    // JSON form: enters element index of the list entered last, which must be an object;
    // LeaveObject leaves it. Nothing in binary.
    void EnterElement(int index);
    // Binary form: refuses a count of elements read from the file that is negative or
    // that the rest of the record cannot hold, each element taking at least bytesEach
    // bytes; checked before anything is allocated for them. Nothing in JSON, where the
    // count is the list's own.
    void CheckCount(int name, int count, size_t bytesEach) const;
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
    struct Out;
    struct JsonWriter;

    CDataFile() = default;
    // A file to write that streams to an open file descriptor.
    CDataFile(EForm form, int fd);
    // Ends the writing: closes the JSON form's outer object and sends what is left of
    // the file to the disk.
    void Finish();
    // Binary helpers.
    void PutBytes(const void* data, size_t n);
    void PutTag(uint8_t tag);
    void PutU32(uint32_t v);
    void PutStringBytes(const std::string& s);
    void Patch32(uint64_t at, uint64_t length);
    void Patch64(uint64_t at, uint64_t length);
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
    std::vector<uint64_t> m_patches; // where pending lengths go, while writing
    uint64_t m_arrayCountAt = 0;     // where the length of a list given number by number goes
    uint32_t m_arrayCount = 0;
    CString m_moduleDescription;
    int m_moduleCount = 0;
    int m_record = -1;
    int m_field = 0;
    // JSON state, reading.
    std::unique_ptr<Json> m_json;
    // Writing: the bytes not yet on the disk, and the JSON form's writer over them.
    std::unique_ptr<Out> m_out;
    std::unique_ptr<JsonWriter> m_jsonWriter;
    bool m_finished = false;
};

} // namespace Tevra::FileIO
