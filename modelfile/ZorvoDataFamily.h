#pragma once

#include "modelfile/ZorvoDataElement.h"

#include <functional>

namespace Tevra::FileIO {

// The helper of one family of records: its module header, how many records it writes,
// how to write record n (1-based) and how to read one record and append it.
class ZorvoDataFamily : public ZorvoDataElement {
  public:
    struct SModule {
        int key;
        const wchar_t* description;
        int generation;
        std::function<int(const Data::ZorvoData&)> count;
        std::function<void(const Data::ZorvoData&, CDataFile&, int record)> write;
        std::function<void(Data::ZorvoData&, CDataFile&, int generation)> read;
    };

    ZorvoDataFamily(Data::ZorvoData& doc, SModule module)
        : ZorvoDataElement(doc), m_module(std::move(module)) {}

    CString GetDataDescription() const override { return m_module.description; }
    int GetDataKey() const override { return m_module.key; }
    int GetNumDataItems() const override { return m_module.count(m_doc); }
    int GetDataBinary() const override { return m_module.generation; }

    int WriteDataElementRecord(CDataFile& file, int record) override {
        file.BeginRecord(0);
        m_module.write(m_doc, file, record);
        file.EndRecord();
        return 1;
    }
    int ReadDataElementRecord(CDataFile& file, int generation) override {
        m_module.read(m_doc, file, generation);
        return 1;
    }

  private:
    SModule m_module;
};

} // namespace Tevra::FileIO
