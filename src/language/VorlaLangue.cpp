#include "language/VorlaLangue.h"

#include <array>
#include <vector>

#include "frame/host/bound_object.h"
#include "frame/shared/files.h"
#include "frame/shared/paths.h"
#include "frame/shared/profile.h"
#include "frame/values/ansi.h"
#include "frame/values/conversions.h"
#include "frame/values/failure.h"
#include "frame/values/unique_handle.h"
#include "frame/values/winapi.h"
#include "language/form_translation.h"
#include "language/language_format.h"
#include "language/language_store.h"
#include "language/message_text.h"

namespace vorla {
namespace {

constexpr bool oem = false;

// The language files of a folder, in the order in which the system lists them.
class LanguageFiles {
public:
    explicit LanguageFiles(TextView folder)
        : search_(
              FindFirstFileA(toAnsi(Text(folder) + L"*" + Text(language::fileExtension)).c_str(), &found_)),
          isFound_(search_) {}

    /// The name of the next file; empty when there are no more.
    Text next() {
        for (; isFound_; isFound_ = FindNextFileA(search_.get(), &found_)) {
            constexpr DWORD notPlain =
                FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
            if (found_.dwFileAttributes & notPlain) continue;
            auto name = fromAnsi(found_.cFileName);
            isFound_ = FindNextFileA(search_.get(), &found_);
            return name;
        }
        return {};
    }

private:
    WIN32_FIND_DATAA found_;
    const FileSearch search_;
    bool isFound_;
};

Variant arrayOf(const std::vector<Text>& texts) {
    Variant result;
    result.put()->vt = VT_ARRAY | VT_BSTR;
    result.put()->parray = nullptr;
    if (texts.empty()) return result;
    const auto array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
    if (!array) throw std::bad_alloc();
    result.put()->parray = array;
    const auto elements = static_cast<BSTR*>(array->pvData);
    for (std::size_t i = 0; i < texts.size(); ++i) elements[i] = Bstr(TextView(texts[i])).detach();
    return result;
}

// Turns a looked-up text into the one that the host gets.
Text finished(Text text, bool suppressEt, const std::array<VariantView, 4>& values) {
    step([&] {
        if (text.empty()) text = language::missingMessage;
    });
    step([&] {
        if (suppressEt) text = language::withoutAccessKeys(text);
    });
    int number = 0;
    for (const VariantView& value : values) {
        ++number;
        if (value.isMissing()) continue;
        step([&] { text = language::withValue(text, number, ValueText(value).view()); });
    }
    return text;
}

}  // namespace

TextView VorlaLangue::lngMesNull() { return language::missingMessage; }
TextView VorlaLangue::LngSeparator() { return language::keySeparator; }
std::uint8_t VorlaLangue::LngDefStatus() { return 0; }
TextView VorlaLangue::LngExtension() { return language::fileExtension; }
TextView VorlaLangue::LngExtensionStatus() { return language::statusExtension; }
TextView VorlaLangue::iniLngSys() { return language::headerSection; }
TextView VorlaLangue::strMesConst() { return language::messageSection; }
TextView VorlaLangue::lngDefaulltLanguage() { return language::defaultCode; }
TextView VorlaLangue::PathOfLang() { return language::folderName; }

TextView VorlaLangue::LngGetFileName() { return languageStore().file; }
TextView VorlaLangue::LngGetFileNameStatus() { return languageStore().statusFile; }
Joined VorlaLangue::LngFolder(eFileN TypeRep) { return DecoupeChemin(languageStore().file, TypeRep); }

void VorlaLangue::LngSetFileName(TextView AppPath, TextView Code) {
    auto& store = languageStore();
    store.folder = AjouteAntiSlash(AppPath).text() + Text(language::folderName);
    store.file = languageFile(Code);
    store.statusFile = store.folder + Text(Code) + Text(language::statusExtension);
}

bool VorlaLangue::LngSetLanguage(TextView Language) {
    return endOnError(false, [&] {
        auto candidate = languageFile(Language);
        const bool exists = ExisteFichier(candidate, eFileToTest::eftFile);
        if (exists) languageStore().file = std::move(candidate);
        if (!exists && Language.empty()) languageStore().file.clear();
        return exists;
    });
}

Variant VorlaLangue::LngGetPresent(lngRetour TypeRetour, const HostObject& Lst) {
    // A copy: the host may select another language while its list is filled.
    const auto folder = languageStore().folder;
    if (folder.empty()) return {};
    LanguageFiles files(folder);
    BoundObject list(Lst);
    if (list.object()) list.call(L"Clear");
    const auto nameIn = [&](TextView file) {
        return IniLecture(folder + Text(file), language::headerSection,
                          language::headerKey(enumLngSpecialInfos::lngcNameIso), {}, oem);
    };
    const auto codeOf = [](TextView file) { return file.substr(0, file.rfind(L'.')); };
    std::vector<Text> texts;
    std::size_t count = 0;
    for (Text file; !(file = files.next()).empty(); checkedPosition(++count)) {
        switch (TypeRetour) {
            case lngRetour::ArrayName: texts.push_back(nameIn(file)); break;
            case lngRetour::ArrayCode: texts.emplace_back(codeOf(file)); break;
            case lngRetour::NumberOfLangue: break;
            case lngRetour::ComboWithName: list.call(L"AddItem", nameIn(file)); break;
            case lngRetour::ComboWithCode: list.call(L"AddItem", codeOf(file)); break;
        }
    }
    if (TypeRetour == lngRetour::NumberOfLangue) return static_cast<std::int16_t>(count);
    return arrayOf(texts);
}

Text VorlaLangue::StringEscape(const Text& strMsg) { return language::escaped(strMsg); }
Text VorlaLangue::StringUnEscape(const Text& strMsg) { return language::unescaped(strMsg); }

Text VorlaLangue::LoadMsgLng(TextView strMsgId, bool SuppressEt, VariantView String_1, VariantView String_2,
                             VariantView String_3, VariantView String_4) {
    return finished(LngReadValue(language::messageSection, strMsgId), SuppressEt,
                    {String_1, String_2, String_3, String_4});
}

Text VorlaLangue::LoadCtlLng(TextView strFormName, TextView strCtlName, eLngProperty CtlProperty,
                             std::int16_t CtlIndex, bool SuppressEt, VariantView String_1,
                             VariantView String_2, VariantView String_3, VariantView String_4) {
    if (!isLanguageSelected()) return {};
    Text text;
    step([&] {
        const auto property = static_cast<std::size_t>(CtlProperty);
        if (property >= std::size(language::properties)) return;
        const auto index = CtlIndex < 0 ? Text() : inDigits(CtlIndex);
        text = LngReadValue(strFormName,
                            language::controlKey(strCtlName, index, language::properties[property]));
    });
    return finished(std::move(text), SuppressEt, {String_1, String_2, String_3, String_4});
}

void VorlaLangue::LngSaveMsg(TextView strMsgId, TextView strMsg) {
    step([&] {
        const TextView file = languageStore().file;
        if (strMsg.empty() || strMsgId.empty() || file.empty()) return;
        IniEcriture(file, language::messageSection, strMsgId, language::escaped(strMsg), oem);
    });
}

Text VorlaLangue::LngPrepareMotCle(TextView Ctl, TextView CtlIndex, TextView Propriete) {
    return language::controlKey(Ctl, CtlIndex, Propriete);
}

Text VorlaLangue::LngSpecialInfos(enumLngSpecialInfos SpecialInfos, bool KeyReturn) {
    const auto key = language::headerKey(SpecialInfos);
    return KeyReturn ? Text(key) : LngReadValue(language::headerSection, key);
}

void VorlaLangue::LngFormLoad(const HostObject& Frm, const HostObject& lblTest, bool OnlyBackColor,
                              bool NoChangeBackColor, TextView FrmSubstitute) {
    if (!isLanguageSelected()) return;
    const language::Theme theme{ThemedBackColorApply, ThemedBackColor, ThemedTabBackColor, ThemedOldColor};
    language::loadForm(Frm, lblTest, {!OnlyBackColor, !NoChangeBackColor, FrmSubstitute, theme});
}

void VorlaLangue::LngFormSave(const HostObject& Frm, TextView NewLanguageName) {
    step([&] {
        if (NewLanguageName.empty()) return;
        const auto file =
            LngFolder(eFileN::efRépertoire).text() + Text(NewLanguageName) + Text(language::fileExtension);
        language::saveForm(Frm, file);
    });
}

void VorlaLangue::LngRedimCtl(const HostObject& Ctl, const HostObject& lblTest, TextView Texte) {
    language::fitToText(Ctl, lblTest, Texte);
}

}  // namespace vorla
