// The library's own classes and the categories on the platform's.
#pragma once

namespace zelka {

// Registers all of them with the runtime. Once, on the loading thread, before anything of the library is used.
void registerClasses();

}  // namespace zelka
