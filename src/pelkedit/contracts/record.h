#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/com_object.h"
#include "values/variant.h"

namespace pelkedit {

using Blob = std::vector<std::uint8_t>;

inline constexpr const char* kRecordProgId = "PelkComn.IboProperties";
inline constexpr const char* kDataProgId = "PelkData.Ibo";
inline constexpr const char* kSizeHelperProgId = "PelkCommon.IboSizeCalculator";

// The in-memory IBO record ("PelkComn.IboProperties"). Every property is reached by its
// name; unknown names are error 438, values of the wrong type error 13, indexes outside
// 0..9 of an indexed property error 9.
class IRecord : public ComObject {
 public:
  virtual Variant Get(const std::string& name) = 0;
  virtual void Set(const std::string& name, const Variant& value) = 0;
  virtual Variant GetAt(const std::string& name, std::int32_t index) = 0;
  virtual void SetAt(const std::string& name, std::int32_t index, const Variant& value) = 0;
  // Display text of a status code; -1 gives the text of the record's own Status.
  virtual std::string StatusText(std::int32_t status) = 0;
  // The whole record in the data component's storage form.
  virtual Blob GetIboData() = 0;
  virtual void SetIboData(const Blob& data) = 0;
};

// The data-access object ("PelkData.Ibo").
class IDataAccess : public ComObject {
 public:
  virtual Blob ReadIbo(std::int32_t iboId, const std::string& procName) = 0;
  virtual void WriteIbo(const Blob& data, const std::string& procName) = 0;
};

// The common library's size helper: the stored size in bytes of a record's storage form.
class ISizeHelper : public ComObject {
 public:
  virtual Variant GetPhysicalSize(const Blob& data) = 0;
};

// A record can be saved when its storage form measures at most this many bytes.
inline constexpr std::int32_t kPalmRecordLimit = 65000;

inline constexpr const char* kProcMain = "GetIboFromMainByIboID";
inline constexpr const char* kProcArchive = "GetIboFromArchiveByIboID";

// The database views a host gives ShowIbo: 0 to 2 read the main table, 3 the archive.
namespace view {
inline constexpr std::int32_t kMain = 0;
inline constexpr std::int32_t kLastMain = 2;
inline constexpr std::int32_t kArchive = 3;
}  // namespace view

// The retrieval procedure that reads a view; nullptr for a code that names no view.
inline const char* RetrievalProcedureOf(std::int32_t viewCode) {
  if (viewCode >= view::kMain && viewCode <= view::kLastMain) return kProcMain;
  if (viewCode == view::kArchive) return kProcArchive;
  return nullptr;
}

}  // namespace pelkedit
