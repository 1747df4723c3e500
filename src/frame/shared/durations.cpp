#include "frame/shared/durations.h"

#include "frame/shared/clock_text.h"
#include "frame/shared/system_queries.h"
#include "frame/values/winapi.h"

namespace vorla {

Text DureeTexte(std::int32_t Secondes, bool SansHeures) {
    return clockText(Secondes, SansHeures, InfoLocale(LOCALE_STIME));
}

}  // namespace vorla
