// How many kernel handles this process holds.
#pragma once

namespace allocations {

unsigned OpenHandles();

}  // namespace allocations
