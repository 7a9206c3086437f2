// What front ends ask of the session of the component, as the last host to call it has set it.
#pragma once

#include "print/listing.hpp"
#include "zendara/value.hpp"
#include "zendara/zendara.hpp"

namespace zendara {

// What two-digit years mean.
YearWindow YearsOfComponent();
// What a listing says of whose it is and of when.
print::ListingHead HeadOfComponent();
// Error 91 without one.
Engine& EngineOfComponent();

}  // namespace zendara
