#pragma once

#include <cstdint>
#include <string>

#include "values/error.h"

namespace pelkedit {

// The error being handled on this thread, as an error handler sees it.
class ErrObject {
 public:
  void Set(const PelkError& error);
  void Clear();
  std::int32_t Number() const { return number_; }
  const std::string& Source() const { return source_; }
  const std::string& Description() const { return description_; }

 private:
  std::int32_t number_ = 0;
  std::string source_;
  std::string description_;
};

ErrObject& Err();

}  // namespace pelkedit
