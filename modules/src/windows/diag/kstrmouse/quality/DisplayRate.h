#pragma once
// How often the display shows a new picture: nothing drawn faster is ever seen.
namespace DisplayRate {

// Refreshes a second of the primary display; 60 when it does not say.
int hz();

}  // namespace DisplayRate
