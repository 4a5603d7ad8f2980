#pragma once

#include <functional>
#include <memory>

#include "data/ibo_store.h"

namespace pelkor::testing {

// A new connection to the same database, as another editor on another machine would have.
using Connect = std::function<std::shared_ptr<IIboStore>()>;

// Two editors open IBO 1042; the second to save is refused with the message and writes nothing,
// saving twice from one editor is no conflict, and reopened, the newer record can be saved.
void ExpectSecondSaveRefused(const Connect& connect);

// Eight editors on eight connections save IBO 7 at once: exactly one lands, the seven others
// are refused with the message, and the stored record is the one that landed, whole.
void ExpectEightEditorsLoseNothing(const Connect& connect);

}  // namespace pelkor::testing
