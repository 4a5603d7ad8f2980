#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "record/ibo_properties.h"
#include "values/error.h"

namespace pelkor::testing {

// A value of the property's type that no new record holds; `seed` varies it between
// properties and slots. Ring indexes stay within 0..9.
pelkedit::Variant SampleValue(const PropertyInfo& info, int seed);

// A record with every writable property (every slot) set to a SampleValue.
std::shared_ptr<pelkedit::IRecord> FullyFilledRecord();

// The PelkError that `action` raises; fails the test when it raises nothing.
pelkedit::PelkError CaptureError(const std::function<void()>& action);

// "Name" or "Name(3)" with the value, for readable failure messages.
std::string Describe(const std::string& name, int slot, const pelkedit::Variant& value);

}  // namespace pelkor::testing
