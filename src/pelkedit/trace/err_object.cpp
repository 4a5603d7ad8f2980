#include "trace/err_object.h"

namespace pelkedit {

void ErrObject::Set(const PelkError& error) {
  number_ = error.Number();
  source_ = error.Source();
  description_ = error.Description();
}

void ErrObject::Clear() {
  *this = ErrObject();
}

ErrObject& Err() {
  thread_local ErrObject err;
  return err;
}

}  // namespace pelkedit
