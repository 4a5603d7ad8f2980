#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pelkedit {

class ListBox;

// The answer scales of the Sales Environment: the item texts in order; the stored code of an
// answer is its item's position (-1 for none).
using Scale = std::vector<std::string>;
namespace scale {
const Scale& Level();
const Scale& Urgency();
const Scale& Budget();
const Scale& Funding();
const Scale& Familiarity();
const Scale& Relationship();
const Scale& Proof();
}  // namespace scale

// Empties the list and appends the scale's items in order (FillCombo).
void FillCombo(ListBox& list, const Scale& items);

// Makes a stored code the list's selected position, as a load does: the code is narrowed to
// a 16-bit list position, and one the list cannot hold is error 380. Raises the list's click.
void SelectStoredCode(ListBox& list, std::int32_t code);

}  // namespace pelkedit
