// A form in three languages: languages.exe TRANSLATIONS APPLICATION
//
// The form is designed in French. Its texts are saved as the first language file of an application, and the
// translators' files are put beside it. The form is then shown in each language that has a file: its texts,
// the widths of its option buttons and check boxes, its colours, and the application's messages. APPLICATION
// is the application's folder, TRANSLATIONS the folder of the translators' files. Pictures of the form in
// each language are left in APPLICATION.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/contract/enumerations.h"
#include "frame/host/bound_object.h"
#include "support/forms/host.h"
#include "support/png_file.h"
#include "support/window_picture.h"

namespace {

using namespace vorla;
using namespace vorla::forms;

constexpr const wchar_t *french = L"FRA", *codes[] = {L"FRA", L"ENG", L"DEU"};

// Colours are written blue, green, red.
constexpr std::int32_t themeColour = 0xFAF3EC, tabColour = 0xF0DCC8, warningColour = 0xA8EBFF;

std::string utf8(TextView text) {
    std::string result(3 * text.size(), '\0');
    const auto length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                            result.data(), static_cast<int>(result.size()), nullptr, nullptr);
    result.resize(static_cast<std::size_t>(length));
    return result;
}

void print(TextView line) { std::printf("%s\n", utf8(line).c_str()); }

void demand(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

HostObject create(const wchar_t* program) {
    CLSID id;
    ComPointer<IDispatch> created;
    demand(SUCCEEDED(CLSIDFromProgID(program, &id)) &&
               SUCCEEDED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                          reinterpret_cast<void**>(created.put()))),
           "Vorla6 is not registered");
    return HostObject(created.get());
}

// The form as designed.
class CustomerForm {
public:
    explicit CustomerForm(Host& host)
        : form(host.load(L"frmClient", {.caption = L"Fiche du client",
                                        .border = Border::fixed,
                                        .controlBox = false,
                                        .insideWidth = 7980,
                                        .insideHeight = 4350})) {
        add<Label>({.name = L"lblNom", .text = L"Nom :", .at = {180, 225, 1200, 255}});
        add<TextBox>({.name = L"txtNom", .text = L"Lefèvre", .at = {1440, 180, 2400, 315}})
            .put(L"ToolTipText", L"Le nom tel qu'il sera imprimé");
        add<Label>({.name = L"lblLangue", .text = L"Langue :", .at = {180, 645, 1200, 255}});
        add<Label>({.name = L"lblAvis", .text = L"Compte bloqué", .at = {5220, 225, 2580, 255}})
            .put(L"BackColor", std::int32_t{warningColour});
        controls_[L"lblAvis"]->put(L"Tag", L"**C**");

        auto& sort =
            add<Frame>({.name = L"fraTri", .text = L"Ordre de la liste", .at = {180, 1110, 4200, 1560}});
        sort.put(L"Tag", L"**SmartTab**");
        const wchar_t* const orders[] = {L"Par &nom", L"Par &ville", L"Par date de dernière &commande"};
        for (std::int16_t i = 0; i < 3; ++i)
            options.push_back(&add<OptionButton>({.name = L"optTri",
                                                  .text = orders[i],
                                                  .at = {180, 345 + 375.0f * static_cast<float>(i), 900, 270},
                                                  .index = i,
                                                  .in = &sort}));
        options[1]->put(L"Value", true);

        auto& letters =
            add<Frame>({.name = L"fraCourrier", .text = L"Courrier", .at = {4560, 1110, 3240, 1560}});
        letters.put(L"Tag", L"**SmartTab**");
        const std::pair<const wchar_t*, const wchar_t*> checks[] = {{L"chkFacture", L"Factures par courrier"},
                                                                    {L"chkPub", L"Offres && promotions"},
                                                                    {L"chkRappel", L"Rappels"}};
        for (std::size_t i = 0; i < 3; ++i)
            options.push_back(&add<CheckBox>({.name = checks[i].first,
                                              .text = checks[i].second,
                                              .at = {180, 345 + 375.0f * static_cast<float>(i), 900, 270},
                                              .in = &letters}));
        options[3]->put(L"Value", std::int16_t{1});
        // Controls on a tab get its colour.
        for (auto* option : options) option->put(L"Tag", L"**SmartTab**");

        add<Label>({.name = L"lblNote", .text = L"Note :", .at = {180, 2865, 1200, 255}});
        add<TextBox>({.name = L"txtNote", .text = L"Livrer le matin.", .at = {1440, 2820, 6360, 315}});
        add<CommandButton>(
            {.name = L"cmdEnregistrer", .text = L"&Enregistrer", .at = {4320, 3660, 1680, 420}});
        add<CommandButton>({.name = L"cmdFermer", .text = L"&Fermer", .at = {6120, 3660, 1680, 420}});

        languages.put(L"Font", newFont(L"Tahoma", 9));
        measuring.put(L"AutoSize", true);
        measuring.put(L"Visible", false);
    }

    Form& form;
    // Lists the available languages.
    DropDownList& languages = form.add<DropDownList>({.name = L"cboLangue", .at = {1440, 600, 2400, 315}});
    // Used to measure the widths of captions.
    Label& measuring = form.add<Label>({.name = L"lblTest"});
    std::vector<Control*> options;

private:
    template <class Kind>
    Kind& add(const Design& design) {
        auto& made = form.add<Kind>(design);
        made.put(L"Font", newFont(L"Tahoma", 9));
        controls_[design.name] = &made;
        return made;
    }

    std::map<Text, Control*> controls_;
};

// Texts that belong to no control, with placeholders for values.
void saveMessages(BoundObject& langue) {
    langue.call(L"LngSaveMsg", L"msgEnregistre",
                L"Le client %%1 est enregistré.\r\nIl recevra %%2 lettres & %%3 offres avant le %%4.");
    langue.call(L"LngSaveMsg", L"msgQuitter", L"&Quitter sans enregistrer ?");
    langue.call(L"LngSaveMsg", L"msgVersion", L"Version d'essai");
}

void savePicture(const Form& form, const Text& name) {
    const auto bitmap = name + L".bmp";
    demand(test::saveWindowPicture(form.handle(), bitmap) && test::saveAsPng(bitmap, name + L".png"),
           "a picture cannot be saved");
    DeleteFileW(bitmap.c_str());
}

// Everything that users see of one language.
void show(BoundObject& langue, CustomerForm& customer, const wchar_t* code, const Text& application) {
    demand(converted(langue.call(L"LngSetLanguage", code).view(), VT_BOOL).raw().boolVal != VARIANT_FALSE,
           "a language has no file");
    langue.call(L"LngFormLoad", HostObject(&customer.form), HostObject(&customer.measuring));
    langue.call(L"LngGetPresent", lngRetour::ComboWithName, HostObject(&customer.languages));
    customer.languages.put(
        L"Text",
        Text(ValueText(langue.call(L"LngSpecialInfos", enumLngSpecialInfos::lngcNameIso).view()).view()));
    customer.form.refresh();
    savePicture(customer.form, application + L"\\languages-" + code);

    print(Text(code) + L": " + customer.form.getAs<Text>(L"Caption"));
    for (auto* option : customer.options)
        print(L"  " + option->path() + L" \"" + option->getAs<Text>(L"Caption") + L"\", " +
              option->getAs<Text>(L"Width") + L" twips");
    const auto message = langue.call(L"LoadMsgLng", L"msgEnregistre", false, L"Lefèvre", std::int16_t{2},
                                     L"3", Date{36'939});  // 17 February 2001
    print(ValueText(message.view()).view());
    print(ValueText(langue.call(L"LoadMsgLng", L"msgQuitter", true).view()).view());
    print(ValueText(langue.call(L"LoadMsgLng", L"msgVersion").view()).view());
    print(L"");
}

void copyTranslation(const Text& from, const Text& to, const wchar_t* code) {
    const auto name = Text(L"\\") + code + L".lng";
    demand(CopyFileW((from + name).c_str(), (to + name).c_str(), FALSE) != FALSE,
           "a translation cannot be copied");
}

void run(const Text& translations, const Text& application) {
    const auto folder = application + L"\\Languages";
    CreateDirectoryW(folder.c_str(), nullptr);
    for (const auto* code : codes) copyTranslation(translations, folder, code);

    Host host;
    CustomerForm customer(host);
    customer.form.show();
    BoundObject langue(create(L"Vorla6.VorlaLangue"));
    langue.call(L"LngSetFileName", application, french);
    langue.call(L"LngFormSave", HostObject(&customer.form), french);
    saveMessages(langue);

    langue.put(L"ThemedBackColorApply", true);
    langue.put(L"ThemedOldColor", systemColour(COLOR_BTNFACE));
    langue.put(L"ThemedBackColor", std::int32_t{themeColour});
    langue.put(L"ThemedTabBackColor", std::int32_t{tabColour});
    for (const auto* code : codes) show(langue, customer, code, application);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3 || FAILED(OleInitialize(nullptr))) return 2;
    int status = 1;
    try {
        run(arguments[1], arguments[2]);
        print(L"trois langues montrées");
        status = 0;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "run-time error %d\n", static_cast<int>(error.number()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    OleUninitialize();
    return status;
}
