#include "CDataFile.h"

#include "JsonNameID.h"
#include "SystemMemory.h"

#include <rapidjson/document.h>
#include <rapidjson/encodedstream.h>
#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <limits>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace Tevra::FileIO {

namespace {

const char kMagic[8] = {'Z', 'O', 'R', 'V', 'O', 'B', 'I', 'N'};
constexpr uint32_t kContainerVersion = 1;

// Field type tags of the binary form.
enum : uint8_t { kTagInt = 1, kTagDouble = 2, kTagBool = 3, kTagString = 4, kTagDoubles = 5 };

const char* TagName(uint8_t tag) {
    switch (tag) {
    case kTagInt:
        return "an integer";
    case kTagDouble:
        return "a number";
    case kTagBool:
        return "a yes/no value";
    case kTagString:
        return "a text";
    case kTagDoubles:
        return "a list of numbers";
    default:
        return "an unknown field type";
    }
}

const char* Member(int name) {
    const char* s = JsonName(name);
    return s ? s : "?";
}

// Readable form of a JSON value's type.
const char* JsonTypeName(const rapidjson::Value& v) {
    if (v.IsNull())
        return "null";
    if (v.IsBool())
        return "true/false";
    if (v.IsObject())
        return "an object";
    if (v.IsArray())
        return "an array";
    if (v.IsString())
        return "a text";
    if (v.IsInt())
        return "an integer";
    return "a number";
}

std::string Quote(const std::string& s) { return "'" + s + "'"; }

// Text of a value that a JSON number cannot hold.
const char* NonFiniteText(double v) {
    if (std::isnan(v))
        return "NaN";
    return v > 0 ? "Infinity" : "-Infinity";
}

// A JSON number, or one of the texts above; false for anything else.
bool JsonNumber(const rapidjson::Value& v, double& out) {
    if (v.IsNumber()) {
        out = v.GetDouble();
        return true;
    }
    if (!v.IsString())
        return false;
    const std::string s = v.GetString();
    if (s == "NaN")
        out = std::numeric_limits<double>::quiet_NaN();
    else if (s == "Infinity")
        out = std::numeric_limits<double>::infinity();
    else if (s == "-Infinity")
        out = -std::numeric_limits<double>::infinity();
    else
        return false;
    return true;
}

// Deepest nesting of objects and arrays that a model file may hold. A project needs
// seven levels (the file, its modules, a module, its records, a record, an object in it
// such as a centre line, and its end point); deeper text is no project, and the cap
// keeps any walk of the document shallow.
constexpr int kMaxJsonDepth = 64;

// Builds the document from the parser's events with every number converted by the C
// library, which rounds correctly: a double written out comes back bit for bit.
struct ExactNumbers {
    rapidjson::Document& d;
    std::string badNumber; // a number that no double holds
    int depth = 0;
    bool tooDeep = false;

    bool Enter() {
        tooDeep = ++depth > kMaxJsonDepth;
        return !tooDeep;
    }

    bool Null() { return d.Null(); }
    bool Bool(bool b) { return d.Bool(b); }
    bool Int(int i) { return d.Int(i); }
    bool Uint(unsigned u) { return d.Uint(u); }
    bool Int64(int64_t i) { return d.Int64(i); }
    bool Uint64(uint64_t u) { return d.Uint64(u); }
    bool Double(double v) { return d.Double(v); }
    bool String(const char* s, rapidjson::SizeType n, bool copy) { return d.String(s, n, copy); }
    bool StartObject() { return Enter() && d.StartObject(); }
    bool Key(const char* s, rapidjson::SizeType n, bool copy) { return d.Key(s, n, copy); }
    bool EndObject(rapidjson::SizeType members) {
        --depth;
        return d.EndObject(members);
    }
    bool StartArray() { return Enter() && d.StartArray(); }
    bool EndArray(rapidjson::SizeType elements) {
        --depth;
        return d.EndArray(elements);
    }
    bool RawNumber(const char* s, rapidjson::SizeType n, bool) {
        const std::string text(s, n);
        errno = 0;
        if (text.find_first_of(".eE") == std::string::npos) {
            char* end = nullptr;
            const long long v = std::strtoll(text.c_str(), &end, 10);
            if (errno == 0 && *end == '\0') {
                if (v >= std::numeric_limits<int>::min() && v <= std::numeric_limits<int>::max())
                    return d.Int(static_cast<int>(v));
                return d.Int64(v);
            }
            errno = 0;
        }
        const double v = std::strtod(text.c_str(), nullptr);
        if (errno == ERANGE && std::isinf(v)) {
            badNumber = text;
            return false;
        }
        return d.Double(v);
    }
};

} // namespace

namespace {

// ---- Telling the form of a file from its first bytes -------------------------------

const char kUtf8Bom[3] = {'\xEF', '\xBB', '\xBF'};

bool IsJsonSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// Whether a text is a start of another, the whole of it if it is shorter.
bool StartsAs(const std::string& bytes, const char* head, size_t headSize) {
    return std::memcmp(bytes.data(), head, std::min(bytes.size(), headSize)) == 0;
}

// What the first bytes of a file say it is: the binary magic, or a JSON object after
// optional blanks and a UTF-8 byte order mark. It looks at no more than it needs, so that
// a device or a stream of something else is refused before it is read.
class CContentSniffer {
  public:
    enum EContent { eUndecided, eBinary, eJson, eNeither };

    // The bytes so far; complete when no more will come.
    EContent Look(const std::string& bytes, bool complete) {
        if (bytes.size() >= sizeof kMagic && StartsAs(bytes, kMagic, sizeof kMagic))
            return eBinary;
        if (!complete && bytes.size() < sizeof kMagic && StartsAs(bytes, kMagic, sizeof kMagic))
            return eUndecided;
        if (m_at == 0 && StartsAs(bytes, kUtf8Bom, sizeof kUtf8Bom)) {
            if (bytes.size() < sizeof kUtf8Bom)
                return complete ? eNeither : eUndecided;
            m_at = sizeof kUtf8Bom;
        }
        // Blanks already passed are not looked at again: a long run of them costs once.
        while (m_at < bytes.size() && IsJsonSpace(bytes[m_at]))
            ++m_at;
        if (m_at == bytes.size())
            return complete ? eNeither : eUndecided;
        return bytes[m_at] == '{' ? eJson : eNeither;
    }

  private:
    size_t m_at = 0; // the first byte not yet known to be a blank or the byte order mark
};

// Memory that reading a file takes, per byte of the file: the bytes themselves while
// they are read, the parsed JSON document, and the project built from them. Measured on
// projects full of results: about 3 times a binary file; 2.3 times a JSON file as this
// program writes it and 4 times one without blanks, whose every short number takes a
// 16-byte node of the document. A file is refused when this need passes the memory of
// the machine.
constexpr double kBinaryMemoryPerByte = 3.0;
constexpr double kJsonMemoryPerByte = 4.0;
// Read size for files and streams (bytes).
constexpr size_t kReadChunk = 1 << 16;

// Closes a file descriptor when it goes out of scope.
struct CFdCloser {
    int fd;
    ~CFdCloser() { ::close(fd); }
};

} // namespace

struct CDataFile::Json {
    rapidjson::Document doc;
    // The current module and the objects entered, with their paths.
    int module = -1;
    const rapidjson::Value* moduleValue = nullptr;
    std::vector<std::pair<const rapidjson::Value*, std::string>> stack;
};

namespace {

// Bytes gathered before they go to the disk in one write (bytes).
constexpr size_t kWriteChunk = 1 << 20;

// A write to the disk that failed, with the system's reason.
struct CWriteFailure {
    int error;
};

// Writes all the bytes at an offset of a file, or throws CWriteFailure.
void WriteAllAt(int fd, const char* data, size_t n, off_t at) {
    while (n > 0) {
        const ssize_t done = ::pwrite(fd, data, n, at);
        if (done < 0) {
            if (errno == EINTR)
                continue;
            throw CWriteFailure{errno};
        }
        data += done;
        n -= static_cast<size_t>(done);
        at += done;
    }
}

} // namespace

// The bytes of a file being written. Held whole in memory, or, when it streams to a
// file, only those not yet written: a length known only at the end of what it measures
// is patched in the buffer, or in the file where those bytes are already written.
// It is also the output stream of the JSON writer.
struct CDataFile::Out {
    using Ch = char;
    std::string buf;
    int fd = -1;          // the file streamed to, or -1 in memory
    uint64_t written = 0; // bytes already in the file, before those of buf

    uint64_t Size() const { return written + buf.size(); }
    void Append(const void* data, size_t n) {
        buf.append(static_cast<const char*>(data), n);
        if (buf.size() >= kWriteChunk)
            Drain();
    }
    void Put(char c) {
        buf.push_back(c);
        if (buf.size() >= kWriteChunk)
            Drain();
    }
    void Flush() {}
    void Drain() {
        if (fd < 0)
            return;
        WriteAllAt(fd, buf.data(), buf.size(), static_cast<off_t>(written));
        written += buf.size();
        buf.clear();
    }
    void Patch(uint64_t at, const void* data, size_t n) {
        const char* p = static_cast<const char*>(data);
        if (at < written) { // the start of it is already in the file
            const size_t head = static_cast<size_t>(std::min<uint64_t>(n, written - at));
            WriteAllAt(fd, p, head, static_cast<off_t>(at));
            at += head;
            p += head;
            n -= head;
        }
        if (n > 0)
            std::memcpy(&buf[static_cast<size_t>(at - written)], p, n);
    }
};

struct CDataFile::JsonWriter {
    rapidjson::PrettyWriter<Out> w;
    // The objects and lists of objects open inside a record, true for a list: an object
    // opened directly in a list is its next element and has no name.
    std::vector<bool> open;
    explicit JsonWriter(Out& out) : w(out) { w.SetIndent(' ', 2); }
};

CDataFile::CDataFile(EForm form) : CDataFile(form, -1) {}

CDataFile::CDataFile(EForm form, int fd) : m_form(form), m_out(std::make_unique<Out>()) {
    m_out->fd = fd;
    if (fd >= 0)
        m_out->buf.reserve(kWriteChunk + kWriteChunk / 4);
    if (form == eJson) {
        m_jsonWriter = std::make_unique<JsonWriter>(*m_out);
        m_jsonWriter->w.StartObject();
        m_jsonWriter->w.Key("modules");
        m_jsonWriter->w.StartArray();
    } else {
        PutBytes(kMagic, sizeof kMagic);
        PutU32(kContainerVersion);
    }
}

CDataFile::CDataFile(CDataFile&&) noexcept = default;
CDataFile& CDataFile::operator=(CDataFile&&) noexcept = default;
CDataFile::~CDataFile() = default;

namespace {

[[noreturn]] void NotAModelFile(const std::string& name, bool empty) {
    if (empty)
        throw CDataFileError(name + ": the file is empty");
    throw CDataFileError(name + ": the file is neither a binary model file nor a JSON object");
}

} // namespace

CDataFile CDataFile::FromBytes(std::string bytes, const std::string& name) {
    CContentSniffer sniffer;
    const CContentSniffer::EContent content = sniffer.Look(bytes, true);
    if (content == CContentSniffer::eNeither)
        NotAModelFile(name, bytes.empty());
    CDataFile f;
    f.m_name = name;
    if (content == CContentSniffer::eBinary) {
        f.m_form = eBinary;
        f.m_bytes = std::move(bytes);
        f.m_pos = sizeof kMagic;
        const uint32_t version = f.GetU32();
        if (version != kContainerVersion)
            f.Fail("container version " + std::to_string(version) +
                   " is not one this program reads (it reads version " +
                   std::to_string(kContainerVersion) + ")");
        return f;
    }
    f.m_form = eJson;
    f.m_json = std::make_unique<Json>();
    rapidjson::Document& doc = f.m_json->doc;
    rapidjson::MemoryStream memory(bytes.data(), bytes.size());
    rapidjson::EncodedInputStream<rapidjson::UTF8<>, rapidjson::MemoryStream> input(memory);
    rapidjson::Reader reader;
    rapidjson::ParseResult result;
    std::string badNumber;
    bool tooDeep = false;
    auto parse = [&](rapidjson::Document& d) {
        ExactNumbers handler{d, {}};
        // Iterative: the parser keeps its nesting on the heap, not on the call stack.
        result =
            reader.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag |
                         rapidjson::kParseValidateEncodingFlag>(input, handler);
        badNumber = handler.badNumber;
        tooDeep = handler.tooDeep;
        return !result.IsError();
    };
    doc.Populate(parse);
    if (result.IsError()) {
        const size_t offset = result.Offset();
        size_t line = 1, column = 1;
        for (size_t i = 0; i < offset && i < bytes.size(); ++i) {
            if (bytes[i] == '\n') {
                ++line;
                column = 1;
            } else {
                ++column;
            }
        }
        std::string why;
        if (tooDeep)
            why = "nested more than " + std::to_string(kMaxJsonDepth) + " levels deep";
        else if (!badNumber.empty())
            why = "the number " + badNumber + " is too large";
        else
            why = rapidjson::GetParseError_En(result.Code());
        throw CDataFileError(name + ": line " + std::to_string(line) + ", column " +
                             std::to_string(column) + ": not valid JSON: " + why);
    }
    const auto it = doc.FindMember("modules");
    if (it == doc.MemberEnd() || !it->value.IsArray())
        throw CDataFileError(name + ": a JSON model file needs a \"modules\" array");
    return f;
}

CDataFile CDataFile::FromFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        throw CDataFileError(path + ": cannot open the file: " + std::strerror(errno));
    const CFdCloser closer{fd};
    struct stat st {};
    if (::fstat(fd, &st) != 0)
        throw CDataFileError(path + ": cannot read the file: " + std::strerror(errno));
    if (S_ISDIR(st.st_mode))
        throw CDataFileError(path + ": cannot read the file: " + std::strerror(EISDIR));

    // A regular file says its size, and one too large for this machine is refused after
    // its first bytes. A device or a pipe is read until it ends, and refused once it has
    // given more than this machine could read.
    const double memory = SystemMemory::Bytes();
    const bool sized = S_ISREG(st.st_mode);
    bool sizeChecked = false;
    CContentSniffer sniffer;
    CContentSniffer::EContent content = CContentSniffer::eUndecided;
    std::string bytes;
    for (;;) {
        const size_t at = bytes.size();
        bytes.resize(at + kReadChunk);
        const ssize_t n = ::read(fd, &bytes[at], kReadChunk);
        const int error = errno;
        bytes.resize(at + static_cast<size_t>(std::max<ssize_t>(n, 0)));
        if (n < 0) {
            if (error == EINTR)
                continue;
            throw CDataFileError(path + ": cannot read the file: " + std::strerror(error));
        }
        if (content == CContentSniffer::eUndecided) {
            content = sniffer.Look(bytes, n == 0);
            if (content == CContentSniffer::eNeither)
                NotAModelFile(path, bytes.empty());
        }
        if (n == 0)
            break;
        // Only JSON can be undecided past the first bytes: it may open with blanks.
        const double perByte =
            content == CContentSniffer::eBinary ? kBinaryMemoryPerByte : kJsonMemoryPerByte;
        if (sized && !sizeChecked) {
            sizeChecked = true;
            const double size = static_cast<double>(st.st_size);
            if (size * perByte > memory)
                throw CDataFileError(path + ": the file is " + SystemMemory::Describe(size) +
                                     "; reading it needs about " +
                                     SystemMemory::Describe(size * perByte) + ", more than the " +
                                     SystemMemory::Describe(memory) + " " + SystemMemory::Source());
            bytes.reserve(static_cast<size_t>(st.st_size) + kReadChunk);
        }
        if (static_cast<double>(bytes.size()) * perByte > memory)
            throw CDataFileError(path + ": the file runs past " +
                                 SystemMemory::Describe(static_cast<double>(bytes.size())) +
                                 "; reading it needs more than the " +
                                 SystemMemory::Describe(memory) + " " + SystemMemory::Source());
        // JSON holds no control character but its blanks, not even in a text: a stream of
        // anything else that happened to open with a brace is refused in its first chunk.
        if (content != CContentSniffer::eBinary) {
            const auto bad = std::find_if(
                bytes.begin() + static_cast<std::ptrdiff_t>(at), bytes.end(),
                [](char c) { return static_cast<unsigned char>(c) < 0x20 && !IsJsonSpace(c); });
            if (bad != bytes.end())
                NotAModelFile(path, false);
        }
    }
    return FromBytes(std::move(bytes), path);
}

// ---- Writing -------------------------------------------------------------------

void CDataFile::PutBytes(const void* data, size_t n) { m_out->Append(data, n); }
void CDataFile::PutTag(uint8_t tag) { PutBytes(&tag, 1); }
void CDataFile::PutU32(uint32_t v) { PutBytes(&v, 4); }
void CDataFile::PutStringBytes(const std::string& s) {
    PutU32(static_cast<uint32_t>(s.size()));
    PutBytes(s.data(), s.size());
}
void CDataFile::Patch32(uint64_t at, uint64_t length) {
    const auto v = static_cast<uint32_t>(length);
    m_out->Patch(at, &v, 4);
}
void CDataFile::Patch64(uint64_t at, uint64_t length) { m_out->Patch(at, &length, 8); }

// The JSON form is written event by event, as RapidJSON's writer lays out a document
// with an indent of two: the text is that of the whole document laid out at once.
void CDataFile::WriteModuleHeader(const CKeyParam& h) {
    if (IsJson()) {
        auto& w = m_jsonWriter->w;
        w.StartObject();
        w.Key("key");
        w.Int(h.key);
        const std::string desc = h.description.ToUtf8();
        w.Key("description");
        w.String(desc.c_str(), static_cast<rapidjson::SizeType>(desc.size()));
        w.Key("generation");
        w.Int(h.generation);
        w.Key("count");
        w.Int(h.count);
        w.Key("records");
        w.StartArray();
        return;
    }
    PutBytes(&h.key, 4);
    PutStringBytes(h.description.ToUtf8());
    PutBytes(&h.count, 4);
    PutBytes(&h.generation, 4);
    m_patches.push_back(m_out->Size());
    const uint64_t zero = 0;
    PutBytes(&zero, 8);
}

void CDataFile::EndModule() {
    if (IsJson()) {
        m_jsonWriter->w.EndArray();
        m_jsonWriter->w.EndObject();
        return;
    }
    const uint64_t at = m_patches.back();
    m_patches.pop_back();
    Patch64(at, m_out->Size() - at - 8);
}

void CDataFile::BeginRecord(int) {
    if (IsJson()) {
        m_jsonWriter->w.StartObject();
        return;
    }
    m_patches.push_back(m_out->Size());
    PutU32(0);
}

void CDataFile::EndRecord() {
    if (IsJson()) {
        m_jsonWriter->w.EndObject();
        return;
    }
    const uint64_t at = m_patches.back();
    m_patches.pop_back();
    const uint64_t length = m_out->Size() - at - 4;
    if (length > std::numeric_limits<uint32_t>::max())
        throw CDataFileError(m_name + ": a record is too large for the binary form");
    Patch32(at, length);
}

void CDataFile::BeginObject(int name) {
    if (!IsJson())
        return;
    auto& open = m_jsonWriter->open;
    if (open.empty() || !open.back())
        m_jsonWriter->w.Key(Member(name));
    m_jsonWriter->w.StartObject();
    open.push_back(false);
}

void CDataFile::EndObject() {
    if (!IsJson())
        return;
    m_jsonWriter->w.EndObject();
    if (!m_jsonWriter->open.empty())
        m_jsonWriter->open.pop_back();
}

void CDataFile::BeginArray(int name) {
    if (!IsJson())
        return;
    m_jsonWriter->w.Key(Member(name));
    m_jsonWriter->w.StartArray();
    m_jsonWriter->open.push_back(true);
}

void CDataFile::EndArray() {
    if (!IsJson())
        return;
    m_jsonWriter->w.EndArray();
    if (!m_jsonWriter->open.empty())
        m_jsonWriter->open.pop_back();
}

void CDataFile::WriteInt(int name, int value) {
    if (IsJson()) {
        m_jsonWriter->w.Key(Member(name));
        m_jsonWriter->w.Int(value);
        return;
    }
    PutTag(kTagInt);
    PutBytes(&value, 4);
}

namespace {

// A number of the JSON form; JSON has no numbers for the non-finite ones: they go as text.
template <class Writer> void JsonDouble(Writer& w, double value) {
    if (std::isfinite(value))
        w.Double(value);
    else
        w.String(NonFiniteText(value));
}

} // namespace

void CDataFile::WriteDouble(int name, double value) {
    if (IsJson()) {
        m_jsonWriter->w.Key(Member(name));
        JsonDouble(m_jsonWriter->w, value);
        return;
    }
    PutTag(kTagDouble);
    PutBytes(&value, 8);
}

void CDataFile::WriteBool(int name, bool value) {
    if (IsJson()) {
        m_jsonWriter->w.Key(Member(name));
        m_jsonWriter->w.String(value ? "YES" : "NO");
        return;
    }
    PutTag(kTagBool);
    const uint8_t b = value ? 1 : 0;
    PutBytes(&b, 1);
}

void CDataFile::WriteString(int name, const CString& value) {
    const std::string utf8 = value.ToUtf8();
    if (IsJson()) {
        m_jsonWriter->w.Key(Member(name));
        m_jsonWriter->w.String(utf8.c_str(), static_cast<rapidjson::SizeType>(utf8.size()));
        return;
    }
    PutTag(kTagString);
    PutStringBytes(utf8);
}

void CDataFile::WriteDoubleArray(int name, const std::vector<double>& values) {
    BeginDoubleArray(name);
    for (double v : values)
        PutDouble(v);
    EndDoubleArray();
}

void CDataFile::BeginDoubleArray(int name) {
    if (IsJson()) {
        m_jsonWriter->w.Key(Member(name));
        m_jsonWriter->w.StartArray();
        return;
    }
    PutTag(kTagDoubles);
    m_arrayCountAt = m_out->Size();
    m_arrayCount = 0;
    PutU32(0);
}

void CDataFile::PutDouble(double value) {
    if (IsJson()) {
        JsonDouble(m_jsonWriter->w, value);
        return;
    }
    if (m_arrayCount == std::numeric_limits<uint32_t>::max())
        throw CDataFileError(m_name + ": a list of numbers is too long for the binary form");
    ++m_arrayCount;
    PutBytes(&value, 8);
}

void CDataFile::EndDoubleArray() {
    if (IsJson())
        m_jsonWriter->w.EndArray();
    else
        Patch32(m_arrayCountAt, m_arrayCount);
}

void CDataFile::WriteEnum(int name, int value, const wchar_t* const* texts, int count) {
    if (IsJson())
        WriteString(name, value >= 0 && value < count ? CString(texts[value]) : CString(L"?"));
    else
        WriteInt(name, value);
}

void CDataFile::Finish() {
    if (m_finished)
        return;
    m_finished = true;
    if (IsJson()) {
        m_jsonWriter->w.EndArray();
        m_jsonWriter->w.EndObject();
        m_out->Put('\n');
    }
    m_out->Drain();
}

std::string CDataFile::Contents() {
    if (m_out) {
        Finish();
        return m_out->buf;
    }
    // A file that was read.
    if (!IsJson())
        return m_bytes;
    rapidjson::StringBuffer buf;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(buf);
    writer.SetIndent(' ', 2);
    m_json->doc.Accept(writer);
    return std::string(buf.GetString(), buf.GetSize()) + "\n";
}

namespace {

// Links followed from a saved path before giving up, as the system does.
constexpr int kMaxLinks = 40;

// The folder part of a path, with its closing slash; empty for a name alone.
std::string FolderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

// The file that saving to a path replaces: the path itself, or the end of its chain of
// symbolic links, so that a link to a project stays a link. A link to nothing yet
// gives the file it names.
std::string SaveTarget(const std::string& path) {
    std::string target = path;
    for (int hop = 0;; ++hop) {
        struct stat st {};
        if (::lstat(target.c_str(), &st) != 0 || !S_ISLNK(st.st_mode))
            return target;
        if (hop == kMaxLinks)
            throw CDataFileError(path + ": cannot save: " + std::strerror(ELOOP));
        std::string link(static_cast<size_t>(std::max<off_t>(st.st_size, 0)) + 256, '\0');
        const ssize_t n = ::readlink(target.c_str(), &link[0], link.size());
        if (n < 0 || static_cast<size_t>(n) >= link.size())
            throw CDataFileError(path + ": cannot follow the link " + target + ": " +
                                 std::strerror(n < 0 ? errno : ENAMETOOLONG));
        link.resize(static_cast<size_t>(n));
        target = link[0] == '/' ? link : FolderOf(target) + link;
    }
}

// Creates a new file under a short hidden name in the folder (empty: the working
// folder): a name built from the target's could pass the longest name the system takes.
int CreateTemporary(const std::string& folder, mode_t mode, std::string& name) {
    static const char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
        name = folder + ".zorvo-";
        for (int k = 0; k < 6; ++k)
            name += kLetters[random() % (sizeof kLetters - 1)];
        const int fd = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    errno = EEXIST;
    return -1;
}

// Writes a file through a temporary beside the target, which the writer fills through
// the descriptor it is given (throwing CWriteFailure when the system refuses a write),
// and renames the temporary over the target once it is on the disk.
void SaveAtomically(const std::string& path, const std::function<void(int fd)>& write) {
    const std::string target = SaveTarget(path);
    // An existing file keeps its permissions and, where the system allows, its owner; a
    // new one gets what creating a file gives (read and write for all, less the umask).
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode))
        throw CDataFileError(
            path + ": " +
            (S_ISDIR(old.st_mode) ? std::strerror(EISDIR) : std::string("not a regular file")) +
            "; a project is saved only as a regular file");
    const mode_t mode = exists ? (old.st_mode & 07777) : 0666;
    std::string tmp;
    // Created no more open than the target will be: the umask may only take away.
    const int fd = CreateTemporary(FolderOf(target), mode & 0777, tmp);
    if (fd < 0)
        throw CDataFileError(path +
                             ": cannot create a temporary file beside it: " + std::strerror(errno));
    auto discard = [&] {
        ::close(fd);
        ::unlink(tmp.c_str());
    };
    auto fail = [&](const char* what, int error) {
        discard();
        throw CDataFileError(path + ": " + what + ": " + std::strerror(error) +
                             " (the existing file is unchanged)");
    };
    try {
        write(fd);
    } catch (const CWriteFailure& e) {
        fail("cannot write the file", e.error);
    } catch (...) {
        discard();
        throw;
    }
    if (exists) {
        // Failures here are let pass: some file systems hold no owners or permissions,
        // and a project saved there is still better than none.
        if ((old.st_uid != ::geteuid() || old.st_gid != ::getegid()) &&
            ::fchown(fd, old.st_uid, old.st_gid) != 0)
            (void)!::fchown(fd, static_cast<uid_t>(-1), old.st_gid); // the group alone
        (void)::fchmod(fd, mode);
    }
    if (::fsync(fd) != 0)
        fail("cannot flush the file to disk", errno);
    if (::close(fd) != 0) {
        const std::string reason = std::strerror(errno);
        ::unlink(tmp.c_str());
        throw CDataFileError(path + ": cannot close the file: " + reason +
                             " (the existing file is unchanged)");
    }
    if (std::rename(tmp.c_str(), target.c_str()) != 0) {
        const std::string reason = std::strerror(errno);
        ::unlink(tmp.c_str());
        throw CDataFileError(path + ": cannot replace the file: " + reason +
                             " (the existing file is unchanged)");
    }
    // The rename itself reaches the disk with its folder.
    const std::string folder = FolderOf(target);
    const int dir =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        (void)::fsync(dir);
        ::close(dir);
    }
}

} // namespace

void CDataFile::SaveTo(const std::string& path) {
    const std::string bytes = Contents();
    SaveAtomically(path, [&](int fd) { WriteAllAt(fd, bytes.data(), bytes.size(), 0); });
}

void CDataFile::Save(const std::string& path, EForm form,
                     const std::function<void(CDataFile&)>& writer) {
    SaveAtomically(path, [&](int fd) {
        CDataFile file(form, fd);
        file.m_name = path;
        writer(file);
        file.Finish();
    });
}

// ---- Reading: binary primitives -------------------------------------------------

size_t CDataFile::Limit() const {
    if (m_inRecord)
        return m_recordEnd;
    if (m_inModule)
        return m_moduleEnd;
    return m_bytes.size();
}

void CDataFile::Need(size_t n, const char* what) const {
    if (n > Limit() - m_pos) {
        if (m_inRecord)
            Fail(std::string("the record ends before ") + what);
        if (m_inModule)
            Fail(std::string("the module ends before ") + what);
        Fail(std::string("the file ends before ") + what + " (it is truncated)");
    }
}

uint8_t CDataFile::GetU8() {
    Need(1, "the next field");
    return static_cast<uint8_t>(m_bytes[m_pos++]);
}

uint32_t CDataFile::GetU32() {
    Need(4, "a 4-byte value");
    uint32_t v;
    std::memcpy(&v, &m_bytes[m_pos], 4);
    m_pos += 4;
    return v;
}

int32_t CDataFile::GetI32() {
    Need(4, "a 4-byte value");
    int32_t v;
    std::memcpy(&v, &m_bytes[m_pos], 4);
    m_pos += 4;
    return v;
}

uint64_t CDataFile::GetU64() {
    Need(8, "an 8-byte value");
    uint64_t v;
    std::memcpy(&v, &m_bytes[m_pos], 8);
    m_pos += 8;
    return v;
}

double CDataFile::GetF64() {
    Need(8, "an 8-byte number");
    double v;
    std::memcpy(&v, &m_bytes[m_pos], 8);
    m_pos += 8;
    return v;
}

std::string CDataFile::GetStringBytes(const char* what) {
    const uint32_t n = GetU32();
    Need(n, what); // the length is checked against what is left before anything is allocated
    std::string s(m_bytes.data() + m_pos, n);
    m_pos += n;
    return s;
}

void CDataFile::ExpectTag(uint8_t tag, int name) {
    const size_t at = m_pos;
    const uint8_t found = GetU8();
    if (found != tag) {
        m_pos = at;
        Fail(std::string("field ") + Quote(Member(name)) + " should be " + TagName(tag) +
             " but the file holds " + TagName(found));
    }
    ++m_field;
}

std::string CDataFile::Where() const {
    std::string where = m_name;
    if (IsJson()) {
        if (m_json && m_json->module >= 0) {
            where += ": modules[" + std::to_string(m_json->module) + "]";
            if (!m_json->stack.empty())
                where += m_json->stack.back().second;
            if (!m_moduleDescription.IsEmpty())
                where += " (module " + Quote(m_moduleDescription.ToUtf8()) + ")";
        }
        return where;
    }
    where += ": byte " + std::to_string(m_pos);
    if (m_inModule) {
        where += " (module " + Quote(m_moduleDescription.ToUtf8());
        if (m_inRecord)
            where += ", record " + std::to_string(m_record + 1);
        where += ")";
    }
    return where;
}

void CDataFile::Fail(const std::string& what) const { throw CDataFileError(Where() + ": " + what); }

// ---- Reading: modules and records ---------------------------------------------------

bool CDataFile::NextModule(CKeyParam& h) {
    m_inRecord = false;
    m_record = -1;
    if (IsJson()) {
        const rapidjson::Value& modules = m_json->doc["modules"];
        m_json->stack.clear();
        m_moduleDescription = CString();
        ++m_json->module;
        if (m_json->module >= static_cast<int>(modules.Size()))
            return false;
        const rapidjson::Value& mod = modules[static_cast<rapidjson::SizeType>(m_json->module)];
        m_json->moduleValue = &mod;
        if (!mod.IsObject())
            Fail("a module should be an object");
        const auto desc = mod.FindMember("description");
        if (desc == mod.MemberEnd() || !desc->value.IsString())
            Fail("a module needs its \"description\" text");
        h.description = CString::FromUtf8(desc->value.GetString());
        m_moduleDescription = h.description;
        auto intMember = [&](const char* key, int fallback) {
            const auto it = mod.FindMember(key);
            if (it == mod.MemberEnd())
                return fallback;
            if (!it->value.IsInt())
                Fail(std::string("\"") + key + "\" should be an integer");
            return it->value.GetInt();
        };
        const auto recs = mod.FindMember("records");
        if (recs == mod.MemberEnd() || !recs->value.IsArray())
            Fail("a module needs a \"records\" array");
        const int size = static_cast<int>(recs->value.Size());
        h.key = intMember("key", 0);
        h.generation = intMember("generation", -1);
        h.count = intMember("count", size);
        if (h.count != size)
            Fail("\"count\" is " + std::to_string(h.count) + " but the module holds " +
                 std::to_string(size) + " records");
        m_moduleCount = h.count;
        return true;
    }
    m_inModule = false;
    if (m_pos == m_bytes.size())
        return false;
    h.key = GetI32();
    h.description = CString::FromUtf8(GetStringBytes("the module description"));
    h.count = GetI32();
    h.generation = GetI32();
    const uint64_t length = GetU64();
    m_moduleDescription = h.description;
    if (h.count < 0)
        Fail("the module's record count is negative (" + std::to_string(h.count) + ")");
    if (length > m_bytes.size() - m_pos)
        Fail("the module claims " + std::to_string(length) + " bytes but the file holds only " +
             std::to_string(m_bytes.size() - m_pos) + " more (it is truncated)");
    // Every record opens with its 4-byte length, so the count is checked against the
    // bytes before any reader loops over it.
    if (static_cast<uint64_t>(h.count) > length / 4)
        Fail("the module's header counts " + std::to_string(h.count) + " records, more than its " +
             std::to_string(length) + " bytes can hold");
    m_moduleEnd = m_pos + length;
    m_moduleCount = h.count;
    m_inModule = true;
    return true;
}

int CDataFile::NumRecordsInModule() const { return m_moduleCount; }

void CDataFile::SkipModule() {
    m_inRecord = false;
    if (!IsJson())
        m_pos = m_moduleEnd;
}

void CDataFile::BeginReadRecord(int index) {
    m_record = index;
    m_field = 0;
    if (IsJson()) {
        const rapidjson::Value& recs = (*m_json->moduleValue)["records"];
        const rapidjson::Value& rec = recs[static_cast<rapidjson::SizeType>(index)];
        m_json->stack.assign(1, {&rec, ".records[" + std::to_string(index) + "]"});
        if (!rec.IsObject())
            Fail("a record should be an object, not " + std::string(JsonTypeName(rec)));
        return;
    }
    m_inRecord = false;
    if (m_pos == m_moduleEnd)
        Fail("the module holds " + std::to_string(index) + " records but its header counts " +
             std::to_string(m_moduleCount));
    const uint32_t length = GetU32();
    if (length > m_moduleEnd - m_pos)
        Fail("record " + std::to_string(index + 1) + " claims " + std::to_string(length) +
             " bytes, past the end of its module");
    m_recordEnd = m_pos + length;
    m_inRecord = true;
}

void CDataFile::EndReadRecord() {
    if (IsJson()) {
        m_json->stack.clear();
        return;
    }
    m_pos = m_recordEnd;
    m_inRecord = false;
}

void CDataFile::EndModuleRead() {
    if (!IsJson() && m_pos != m_moduleEnd)
        Fail("the module holds more data than its " + std::to_string(m_moduleCount) + " records");
}

bool CDataFile::EnterObject(int name, bool required) {
    if (!IsJson())
        return true;
    auto& top = m_json->stack.back();
    const auto it = top.first->FindMember(Member(name));
    if (it == top.first->MemberEnd()) {
        if (required)
            Fail(std::string("missing member ") + Quote(Member(name)));
        return false;
    }
    if (!it->value.IsObject())
        Fail(Quote(Member(name)) + " should be an object, not " + JsonTypeName(it->value));
    m_json->stack.push_back({&it->value, top.second + "." + Member(name)});
    return true;
}

void CDataFile::LeaveObject() {
    if (IsJson() && m_json->stack.size() > 1)
        m_json->stack.pop_back();
}

int CDataFile::EnterArray(int name, bool required) {
    if (!IsJson())
        return -1;
    auto& top = m_json->stack.back();
    const auto it = top.first->FindMember(Member(name));
    if (it == top.first->MemberEnd()) {
        if (required)
            Fail(std::string("missing member ") + Quote(Member(name)));
        return -1;
    }
    if (!it->value.IsArray())
        Fail(Quote(Member(name)) + " should be an array of objects, not " +
             JsonTypeName(it->value));
    m_json->stack.push_back({&it->value, top.second + "." + Member(name)});
    return static_cast<int>(it->value.Size());
}

void CDataFile::EnterElement(int index) {
    if (!IsJson())
        return;
    const auto& top = m_json->stack.back();
    const rapidjson::Value& element = (*top.first)[static_cast<rapidjson::SizeType>(index)];
    m_json->stack.push_back({&element, top.second + "[" + std::to_string(index) + "]"});
    if (!element.IsObject())
        Fail("an element should be an object, not " + std::string(JsonTypeName(element)));
}

void CDataFile::CheckCount(int name, int count, size_t bytesEach) const {
    if (IsJson())
        return;
    if (count < 0)
        Fail("field " + Quote(Member(name)) + " counts " + std::to_string(count) +
             " elements, which is negative");
    const size_t left = Limit() - m_pos;
    if (static_cast<size_t>(count) > left / bytesEach)
        Fail("field " + Quote(Member(name)) + " counts " + std::to_string(count) +
             " elements, more than the " + std::to_string(left) +
             " bytes left in the record can hold");
}

namespace {

// The member of the current JSON object, or null when absent.
const rapidjson::Value* FindField(const rapidjson::Value& obj, int name) {
    const auto it = obj.FindMember(Member(name));
    return it == obj.MemberEnd() ? nullptr : &it->value;
}

} // namespace

const void* CDataFile::JsonField(int name, bool required) const {
    const rapidjson::Value* v = FindField(*m_json->stack.back().first, name);
    if (!v && required)
        Fail(std::string("missing member ") + Quote(Member(name)));
    return v;
}

bool CDataFile::ReadInt(int name, int& value, bool required) {
    if (!IsJson()) {
        ExpectTag(kTagInt, name);
        value = GetI32();
        return true;
    }
    const auto* v = static_cast<const rapidjson::Value*>(JsonField(name, required));
    if (!v)
        return false;
    if (!v->IsInt())
        Fail(Quote(Member(name)) + " should be an integer, not " + JsonTypeName(*v));
    value = v->GetInt();
    return true;
}

bool CDataFile::ReadDouble(int name, double& value, bool required) {
    if (!IsJson()) {
        ExpectTag(kTagDouble, name);
        value = GetF64();
        return true;
    }
    const auto* v = static_cast<const rapidjson::Value*>(JsonField(name, required));
    if (!v)
        return false;
    if (!JsonNumber(*v, value))
        Fail(Quote(Member(name)) + " should be a number, not " + JsonTypeName(*v));
    return true;
}

bool CDataFile::ReadBool(int name, bool& value, bool required) {
    if (!IsJson()) {
        ExpectTag(kTagBool, name);
        const uint8_t b = GetU8();
        if (b > 1)
            Fail(std::string("field ") + Quote(Member(name)) + " holds " + std::to_string(b) +
                 ", which is not a yes/no value");
        value = b == 1;
        return true;
    }
    const auto* v = static_cast<const rapidjson::Value*>(JsonField(name, required));
    if (!v)
        return false;
    if (v->IsBool()) {
        value = v->GetBool();
        return true;
    }
    if (v->IsString() && std::strcmp(v->GetString(), "YES") == 0) {
        value = true;
        return true;
    }
    if (v->IsString() && std::strcmp(v->GetString(), "NO") == 0) {
        value = false;
        return true;
    }
    Fail(Quote(Member(name)) + " should be \"YES\" or \"NO\"");
}

bool CDataFile::ReadString(int name, CString& value, bool required) {
    if (!IsJson()) {
        ExpectTag(kTagString, name);
        value = CString::FromUtf8(GetStringBytes("the end of a text"));
        return true;
    }
    const auto* v = static_cast<const rapidjson::Value*>(JsonField(name, required));
    if (!v)
        return false;
    if (!v->IsString())
        Fail(Quote(Member(name)) + " should be a text, not " + JsonTypeName(*v));
    value = CString::FromUtf8(std::string(v->GetString(), v->GetStringLength()));
    return true;
}

bool CDataFile::ReadDoubleArray(int name, std::vector<double>& values, bool required) {
    if (!IsJson()) {
        ExpectTag(kTagDoubles, name);
        const uint32_t n = GetU32();
        if (n > (Limit() - m_pos) / sizeof(double))
            Fail("a list of " + std::to_string(n) + " numbers runs past the end of its record");
        values.resize(n);
        for (uint32_t k = 0; k < n; ++k)
            values[k] = GetF64();
        return true;
    }
    const auto* v = static_cast<const rapidjson::Value*>(JsonField(name, required));
    if (!v)
        return false;
    if (!v->IsArray())
        Fail(Quote(Member(name)) + " should be an array of numbers, not " + JsonTypeName(*v));
    std::vector<double> out;
    out.reserve(v->Size());
    for (rapidjson::SizeType k = 0; k < v->Size(); ++k) {
        double x = 0.0;
        if (!JsonNumber((*v)[k], x))
            Fail(Quote(Member(name)) + "[" + std::to_string(k) + "] should be a number, not " +
                 JsonTypeName((*v)[k]));
        out.push_back(x);
    }
    values = std::move(out);
    return true;
}

bool CDataFile::ReadEnum(int name, int& value, const wchar_t* const* texts, int count,
                         bool required) {
    if (!IsJson()) {
        int v = 0;
        ReadInt(name, v);
        if (v < 0 || v >= count)
            Fail(std::string("field ") + Quote(Member(name)) + " holds " + std::to_string(v) +
                 ", which is not one of its " + std::to_string(count) + " values");
        value = v;
        return true;
    }
    CString text;
    if (!ReadString(name, text, required))
        return false;
    for (int k = 0; k < count; ++k) {
        if (text == CString(texts[k])) {
            value = k;
            return true;
        }
    }
    std::string allowed;
    for (int k = 0; k < count; ++k)
        allowed += (k ? ", \"" : "\"") + CString(texts[k]).ToUtf8() + "\"";
    Fail(Quote(Member(name)) + " is \"" + text.ToUtf8() + "\"; it should be one of " + allowed);
}

} // namespace Tevra::FileIO
