#include "language/language_store.h"

#include "frame/shared/fields.h"
#include "frame/shared/profile.h"
#include "frame/values/failure.h"
#include "frame/values/per_thread.h"
#include "language/language_format.h"

namespace vorla {
namespace {

PerThread<LanguageStore> stores;

}  // namespace

LanguageStore& languageStore() { return stores.mine(); }

bool isLanguageSelected() {
    return endOnError(false, [] { return !languageStore().file.empty(); });
}

Text languageFile(TextView code) {
    return languageStore().folder + Text(code) + Text(language::fileExtension);
}

Text LngReadValue(TextView Section, TextView Cle) {
    return endOnError(Text(), [&] {
        // Windows takes these keys for empty too: it ignores blanks, and everything after a NUL.
        if (!isLanguageSelected() || trimmed(TronqueNul(Cle)).empty()) return Text();
        constexpr bool oem = false;
        auto value = IniLecture(languageStore().file, Section, Cle, {}, oem);
        if (value.empty()) value = IniLecture(languageFile(language::defaultCode), Section, Cle, {}, oem);
        return language::unescaped(value);
    });
}

}  // namespace vorla
