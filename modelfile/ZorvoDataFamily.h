#pragma once

#include "modelfile/ZorvoDataElement.h"

#include <functional>

namespace Tevra::FileIO {

// The helper of one family of records: its module header, how many records it writes,
// how to write record n (1-based) and how to read one record and append it.
class ZorvoDataFamily : public ZorvoDataElement {
  public:
    struct SSpec {
        int key;
        const wchar_t* description;
        int generation;
        std::function<int(const Data::ZorvoData&)> count;
        std::function<void(const Data::ZorvoData&, CDataFile&, int record)> write;
        std::function<void(Data::ZorvoData&, CDataFile&, int generation)> read;
    };

    ZorvoDataFamily(Data::ZorvoData& doc, SSpec spec) : ZorvoDataElement(doc), m_spec(std::move(spec)) {}

    CString GetDataDescription() const override { return m_spec.description; }
    int GetDataKey() const override { return m_spec.key; }
    int GetNumDataItems() const override { return m_spec.count(m_doc); }
    int GetDataBinary() const override { return m_spec.generation; }

    int WriteDataElementRecord(CDataFile& file, int record) override {
        file.BeginRecord(0);
        m_spec.write(m_doc, file, record);
        file.EndRecord();
        return 1;
    }
    int ReadDataElementRecord(CDataFile& file, int generation) override {
        m_spec.read(m_doc, file, generation);
        return 1;
    }

  private:
    SSpec m_spec;
};

} // namespace Tevra::FileIO
