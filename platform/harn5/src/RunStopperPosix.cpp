#include "harn5/RunStopper.h"

namespace harn5 {

RunStopper::RunStopper(const Host&) {}

RunStopper::~RunStopper() = default;

}  // namespace harn5
