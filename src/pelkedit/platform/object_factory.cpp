#include "platform/object_factory.h"

#include "values/error.h"

namespace pelkedit {

void ObjectFactory::Register(const std::string& progId, Constructor constructor) {
  constructors_[progId] = std::move(constructor);
}

ObjectPtr ObjectFactory::Create(const std::string& progId) const {
  const auto it = constructors_.find(progId);
  if (it == constructors_.end() || failing_.count(progId) != 0) {
    Raise(errnum::kCannotCreateObject, progId);
  }
  ObjectPtr object;
  try {
    object = it->second();
  } catch (const std::exception& e) {
    Raise(errnum::kCannotCreateObject, progId, e.what());
  }
  if (!object) Raise(errnum::kCannotCreateObject, progId);
  return object;
}

}  // namespace pelkedit
