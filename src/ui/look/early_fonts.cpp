#include "ui/look/early_fonts.h"

#ifdef KESTOR_FONTCONFIG
#include <fontconfig/fontconfig.h>
#endif

namespace kestor {

std::future<void> readFontsEarly() {
#ifdef KESTOR_FONTCONFIG
    return std::async(std::launch::async, [] { FcInit(); });
#else
    return std::async(std::launch::deferred, [] {});
#endif
}

} // namespace kestor
