#include "misc/VorlaDivers.h"

#include <atomic>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "frame/host/bound_object.h"
#include "frame/host/globals.h"
#include "frame/shared/comparison.h"
#include "frame/shared/durations.h"
#include "frame/shared/fields.h"
#include "frame/values/failure.h"
#include "frame/values/handles.h"
#include "frame/values/locked_array.h"
#include "misc/date_difference.h"
#include "misc/growth.h"
#include "misc/mouse_buttons.h"
#include "misc/random_integer.h"

namespace vorla {
namespace {

constexpr std::int32_t notFound = -1;
constexpr double secondsPerDay = 86400;

// What a search compares texts with.
class Sought {
public:
    Sought(TextView key, bool caseSensitive, bool whole)
        : key_(caseSensitive ? Text(key) : lowerCased(key)), caseSensitive_(caseSensitive), whole_(whole) {}

    const Text& key() const { return key_; }

    bool matches(TextView text) const {
        if (whole_ ? text.size() != key_.size() : text.size() < key_.size()) return false;
        // Only as many letters as are compared need another case.
        const auto compared = text.substr(0, key_.size());
        return caseSensitive_ ? compared == key_ : isInLowerCase(compared);
    }

    /// The same for a field of the text. The separator is taken as it was given.
    bool matchesField(TextView text, std::uint8_t rank, TextView separator) const {
        const auto line = caseSensitive_ ? Text(text) : lowerCased(text);
        const auto field = ExtraitChamp(line, rank, separator, false);
        return whole_ ? field == key_ : field.starts_with(key_);
    }

private:
    // Whether this text, as long as the key, is the key in lower case. The system is asked only about a text
    // whose first difference may lie beyond ASCII: most lines of a long list are other texts.
    bool isInLowerCase(TextView text) const {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const auto character = text[i];
            if (character >= 0x80) return lowerCased(text) == key_;
            const bool isCapital = character >= L'A' && character <= L'Z';
            if ((isCapital ? character + (L'a' - L'A') : character) != key_[i]) return false;
        }
        return true;
    }

    const Text key_;
    const bool caseSensitive_;
    const bool whole_;
};

template <class IsMatch>
std::int32_t firstLine(BoundObject& list, IsMatch&& isMatch) {
    const auto count = list.getAs<std::int32_t>(L"ListCount");
    for (std::int32_t i = 0; i < count; ++i)
        if (isMatch(i)) return i;
    return notFound;
}

// A node by its number or its key. Host programs mean `Item` when they name none.
template <class NumberOrKey>
HostObject nodeOf(BoundObject& nodes, const NumberOrKey& which) {
    return objectIn((nodes.knows(L"Item") ? nodes.get(L"Item", which) : nodes.getDefault(which)).view());
}

bool isNumber(VARTYPE type) { return isAmountType(type) && type != VT_DATE; }

template <class IsMatch>
std::int32_t firstIndex(const LockedArray& elements, IsMatch&& isMatch) {
    // The search begins at 0 whatever the first index is; old hosts rely on it.
    if (elements.first() > 0) return notFound;
    for (std::int64_t i = 0; i <= elements.last(); ++i)
        if (isMatch(elements[i])) return static_cast<std::int32_t>(i);
    return notFound;
}

double secondsSince(float start) { return static_cast<double>(Timer()) - static_cast<double>(start); }

// The clock alone would give all calls of one moment the same number.
std::uint64_t newSeed() {
    static std::atomic<std::uint32_t> calls;
    return std::uint64_t{calls.fetch_add(1, std::memory_order_relaxed)} << 32 |
           std::bit_cast<std::uint32_t>(Timer());
}

Moment momentOf(const SYSTEMTIME& time) {
    using namespace std::chrono;
    return sys_days(year(time.wYear) / month(time.wMonth) / day(time.wDay)) + hours(time.wHour) +
           minutes(time.wMinute) + seconds(time.wSecond);
}

// A date to the nearest second.
Moment momentOf(Date date) {
    SYSTEMTIME time;
    // Some systems make a date out of what is not a number.
    if (std::isnan(date.days) || !VariantTimeToSystemTime(date.days, &time))
        throw RuntimeError(ErrorNumber::invalidProcedureCall);
    return momentOf(time);
}

Moment currentMoment() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return momentOf(now);
}

bool isNegative(const DateDifference& time) { return time.hours < 0 || time.minutes < 0 || time.seconds < 0; }

Bstr timeInUsersFormat(const DateDifference& time) {
    const auto seconds = std::abs(time.hours) * 3600 + std::abs(time.minutes) * 60 + std::abs(time.seconds);
    Bstr result;
    throwIfFailed(
        VarBstrFromDate(seconds / secondsPerDay, LOCALE_USER_DEFAULT, VAR_TIMEVALUEONLY, result.put()));
    return result;
}

// What cannot be compared with a code is none.
bool isCode(VariantView value, std::int32_t code) {
    return endOnError(false, [&] { return isEqual(value, Variant(code).view()); });
}

}  // namespace

Variant VorlaDivers::Maxi(VariantView Valeur1, VariantView Valeur2) { return MaxVar(Valeur1, Valeur2); }

Variant VorlaDivers::Mini(VariantView Valeur1, VariantView Valeur2) { return MinVar(Valeur1, Valeur2); }

std::int32_t VorlaDivers::ListeCherche(HostObject List, TextView Cle, const bool& OnItemData,
                                       const bool& CaseSensitive, const bool& RechercheIdentique,
                                       const Text& Separateur, const std::uint8_t& Rang) {
    return endOnError(notFound, [&] {
        if (Cle.empty()) return notFound;
        const Sought sought(Cle, CaseSensitive, RechercheIdentique);
        BoundObject list(std::move(List));
        if (OnItemData) {
            const auto wanted = convertedTo<std::int32_t>(Variant(TextView(sought.key())).view());
            return firstLine(list, [&](std::int32_t line) {
                return list.getAs<std::int32_t>(L"ItemData", line) == wanted;
            });
        }
        return firstLine(list, [&](std::int32_t line) {
            const auto value = list.get(L"List", line);
            const VariantView read = value.view();
            const ValueText text(read);
            return Rang == 0 ? sought.matches(text.view())
                             : sought.matchesField(text.view(), Rang, Separateur);
        });
    });
}

void VorlaDivers::ListeSelectRange(const HostObject& LstBiox, bool NewState, const std::int32_t& FirstItem,
                                   std::int32_t& LastItem) {
    BoundObject list(LstBiox);
    if (LastItem < FirstItem) LastItem = list.getAs<std::int32_t>(L"ListCount") - 1;
    SendMessageA(windowOf(list.getAs<std::int32_t>(L"hwnd")), LB_SELITEMRANGE, NewState ? TRUE : FALSE,
                 MAKELPARAM(FirstItem, LastItem));
}

std::int32_t VorlaDivers::TreeCherche(HostObject Tree, TextView Valeur, bool OnText,
                                      const bool& CaseSensitive, const bool& RechercheIdentique) {
    if (Valeur.empty()) return notFound;
    const Sought sought(Valeur, CaseSensitive, RechercheIdentique);
    BoundObject nodes(BoundObject(std::move(Tree)).getObject(L"Nodes"));
    const auto count = nodes.getAs<std::int32_t>(L"Count");
    for (std::int32_t i = 1; i <= count; ++i) {
        BoundObject node(nodeOf(nodes, i));
        const auto value = OnText ? node.get(L"Text") : node.get(L"Key");
        const VariantView read = value.view();
        if (sought.matches(ValueText(read).view())) return i;
    }
    return notFound;
}

std::int32_t VorlaDivers::TabCherche(VariantView Tabl, VariantView Cle) {
    return endOnError(notFound, [&] {
        if (Cle.isEmpty() || Cle.isNull()) return notFound;
        if (Cle.type() == VT_BSTR && viewOf(Cle.raw().bstrVal).empty()) return notFound;
        // The array first: a key or an element that is an object runs code of the host, which could free it.
        const LockedArray elements(Tabl);
        const Variant key(Cle);
        if (isNumber(Cle.type()))
            return firstIndex(elements, [&](VariantView element) { return isEqual(element, key.view()); });
        const auto text = convertedTo<Text>(key.view());
        return firstIndex(elements,
                          [&](VariantView element) { return ValueText(element).view().starts_with(text); });
    });
}

Currency VorlaDivers::CalcTauxAugm(Currency Mt1, Currency Mt2) {
    return convertedTo<Currency>(Variant(growth(Mt1, Mt2)).view());
}

Bstr VorlaDivers::SysTempsRestant(float TimerDeb, std::int32_t lgMax, std::int32_t lgNow) {
    const auto elapsed = secondsSince(TimerDeb);
    if (lgNow == 0) throw RuntimeError(ErrorNumber::divisionByZero);
    const auto remaining = elapsed / lgNow * lgMax - elapsed;
    return formattedValue(Variant(Date{remaining / secondsPerDay}).view(), L"hh:nn:ss");
}

void VorlaDivers::SysWait(float nbSeconde) {
    const float end = Timer() + nbSeconde;
    while (Timer() < end) DoEvents();
}

Text VorlaDivers::SecondToTime(std::int32_t Temps, const bool& MmSs) { return DureeTexte(Temps, MmSs); }

std::int32_t VorlaDivers::RndBetween(std::int32_t FromValue, const std::int32_t& ToValue) {
    if (FromValue >= ToValue) return FromValue;
    RandomNumbers numbers(newSeed());
    return randomBetween(FromValue, ToValue, [&] { return numbers.next(); });
}

bool VorlaDivers::IsArrayEmpty(const Variant& Tableau) {
    const auto value = Tableau.view();
    LONG bound;
    return !value.isArray() || FAILED(SafeArrayGetUBound(value.raw().parray, 1, &bound));
}

Text VorlaDivers::DateDiffDaysAndTime(Date DateDeb, Date DateFin, const bool& HeureString) {
    const auto start = momentOf(DateDeb);
    const auto difference = dateDifference(start, DateFin.days == 0 ? currentMoment() : momentOf(DateFin));
    if (!HeureString) return daysText(difference) + timeText(difference);
    // The sign belongs to the time but stands before the days; old hosts rely on it.
    Text result(isNegative(difference) ? L"-" : L"");
    return result.append(daysText(difference)).append(timeInUsersFormat(difference).view());
}

bool VorlaDivers::IsMemberExist(const HostObject& mCol, const Text& Key) {
    return endOnError(false, [&] {
        BoundObject(mCol).get(L"Item", Key);
        return true;
    });
}

bool VorlaDivers::IsNodeExist(const HostObject& Tree, TextView Key) {
    return endOnError(false, [&] {
        BoundObject nodes(BoundObject(Tree).getObject(L"Nodes"));
        BoundObject(nodeOf(nodes, Key)).get(L"Text");
        return true;
    });
}

Variant VorlaDivers::ElTranslate(eElTranslate Quoi, VariantView Value, eElTranslateSens Sens) {
    if (Quoi != eElTranslate::eltButton) return {};
    const auto value = plainValue(Value);
    for (const auto [control, host] : mouseButtons) {
        if (Sens == eElTranslateSens::eltsFromElToVB && isCode(value.view(), control)) return host;
        if (Sens == eElTranslateSens::eltsFromVBToEl && isCode(value.view(), host)) return control;
    }
    return {};
}

}  // namespace vorla
