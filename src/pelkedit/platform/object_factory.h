#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

#include "platform/com_object.h"

namespace pelkedit {

// Programmatic identifier -> constructor. Hosts register the product's components here and
// their platforms create through it; a test can make any identifier fail.
class ObjectFactory {
 public:
  using Constructor = std::function<ObjectPtr()>;

  void Register(const std::string& progId, Constructor constructor);
  void FailCreate(const std::string& progId) { failing_.insert(progId); }
  // Error 429 when the identifier is unknown, made to fail, or its constructor fails.
  ObjectPtr Create(const std::string& progId) const;

 private:
  std::map<std::string, Constructor> constructors_;
  std::set<std::string> failing_;
};

}  // namespace pelkedit
