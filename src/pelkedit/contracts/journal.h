#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "contracts/record.h"

namespace pelkedit {

// The unsaved changes of one record as kept after a step: the record in storage form and the
// version of the stored row the changes were made on.
struct KeptChanges {
  std::string version;
  Blob record;
};

// Where a host keeps unsaved changes so that a crash or a power cut loses none: one entry per
// record and table, replaced whole, so that whatever stops the program leaves either the
// previous entry or the new one. Failures are PelkErrors.
class IChangeJournal {
 public:
  virtual ~IChangeJournal() = default;
  virtual void Keep(std::int32_t iboId, const std::string& procName, const KeptChanges& kept) = 0;
  virtual std::optional<KeptChanges> Find(std::int32_t iboId, const std::string& procName) = 0;
  virtual void Remove(std::int32_t iboId, const std::string& procName) = 0;
};

// What a data-access object may also offer: the version of the row it read, and a save held to
// an older one (changes kept on that version are saved only if nobody saved the row since).
class IRowVersions {
 public:
  virtual ~IRowVersions() = default;
  virtual std::string VersionRead(std::int32_t iboId, const std::string& procName) = 0;
  virtual void ExpectVersion(std::int32_t iboId, const std::string& procName,
                             const std::string& version) = 0;
};

// For objects that wrap a data-access object: the row versions of the one wrapped, when it
// offers them ("" and nothing done when it does not).
class ForwardedRowVersions : public IRowVersions {
 public:
  explicit ForwardedRowVersions(std::shared_ptr<IDataAccess> wrapped)
      : wrapped_(std::move(wrapped)) {}
  std::string VersionRead(std::int32_t iboId, const std::string& procName) override {
    auto* versions = dynamic_cast<IRowVersions*>(wrapped_.get());
    return versions != nullptr ? versions->VersionRead(iboId, procName) : std::string();
  }
  void ExpectVersion(std::int32_t iboId, const std::string& procName,
                     const std::string& version) override {
    if (auto* versions = dynamic_cast<IRowVersions*>(wrapped_.get())) {
      versions->ExpectVersion(iboId, procName, version);
    }
  }

 private:
  std::shared_ptr<IDataAccess> wrapped_;
};

}  // namespace pelkedit
