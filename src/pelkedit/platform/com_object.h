#pragma once

#include <memory>

namespace pelkedit {

// Base of every collaborator created by programmatic identifier; callers cast the object
// to the interface they need.
class ComObject {
 public:
  virtual ~ComObject() = default;
};

using ObjectPtr = std::shared_ptr<ComObject>;

}  // namespace pelkedit
