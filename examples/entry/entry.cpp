// An entry form: entry.exe PICTURES
//
// What the user types passes the keyboard filters, character by character. A range of names that was entered
// in the wrong order is put in order, after a message that a thread reads and answers as the user would. A
// frame is disabled with all it holds, the mouse pointer is moved to a button, and the form is cleared.
// Pictures of the form and of the message are left in the folder PICTURES.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "frame/contract/enumerations.h"
#include "frame/contract/records.h"
#include "frame/host/bound_object.h"
#include "support/forms/host.h"
#include "support/png_file.h"
#include "support/window_picture.h"

namespace {

using namespace vorla;
using namespace vorla::forms;

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

bool savePicture(HWND window, const Text& name) {
    const auto bitmap = name + L".bmp";
    const bool saved = test::saveWindowPicture(window, bitmap) && test::saveAsPng(bitmap, name + L".png");
    DeleteFileW(bitmap.c_str());
    return saved;
}

// --- the user ---

BOOL CALLBACK findDialog(HWND window, LPARAM parameter) {
    wchar_t name[20] = L"";
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 20);
    if (process != GetCurrentProcessId() || TextView(name) != L"#32770" || !IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(parameter) = window;
    return FALSE;
}

// Takes a picture of the next message and answers it. The destructor waits for that.
class Reader {
public:
    explicit Reader(Text picture)
        : picture_(std::move(picture)), thread_(CreateThread(nullptr, 0, &read, this, 0, nullptr)) {}
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() {
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
    }

private:
    static DWORD WINAPI read(void* self) {
        constexpr DWORD glance = 20, reading = 300;  // milliseconds
        constexpr int patience = 1000;
        HWND message = nullptr;
        for (int i = 0; i < patience && !message; ++i) {
            Sleep(glance);
            EnumWindows(&findDialog, reinterpret_cast<LPARAM>(&message));
        }
        if (!message) return 1;
        // Without a screen, a program's first window is active without being told.
        SendMessageW(message, WM_NCACTIVATE, TRUE, 0);
        Sleep(reading);
        if (!savePicture(message, static_cast<Reader*>(self)->picture_))
            std::fprintf(stderr, "no picture of the message\n");
        PostMessageW(message, WM_COMMAND, IDOK, 0);
        return 0;
    }

    const Text picture_;
    const HANDLE thread_;
};

// --- the form ---

class OrderForm {
public:
    explicit OrderForm(Host& host)
        : form(host.load(L"frmCommande", {.caption = L"Commande",
                                          .border = Border::fixed,
                                          .controlBox = false,
                                          .insideWidth = 7200,
                                          .insideHeight = 3900})) {
        for (std::int16_t i = 0; i < 3; ++i) {
            const wchar_t* const names[] = {L"Normale", L"Rapide", L"Sur rendez-vous"};
            add<OptionButton>({.name = L"optMode",
                               .text = names[i],
                               .at = {180, 300 + 330.0f * static_cast<float>(i), 1800, 270},
                               .index = i,
                               .in = &mode});
        }
    }

    HostObject modes() {
        BoundObject controls(form.get(L"Controls").view());
        return controls.getObject(L"Item", L"optMode");
    }

    Form& form;
    TextBox& code = labelled(L"Code :", 180);
    TextBox& amount = labelled(L"Montant :", 600);
    TextBox& file = labelled(L"Fichier :", 1020);
    Label& fromLabel = add<Label>({.name = L"lblDe", .text = L"Martin, Lyon", .at = {5580, 225, 1500, 255}});
    Label& toLabel = add<Label>({.name = L"lblA", .text = L"Dupont, Paris", .at = {5580, 645, 1500, 255}});
    TextBox& from = add<TextBox>({.name = L"txtDe", .text = L"Martin", .at = {4320, 180, 1140, 315}});
    TextBox& to = add<TextBox>({.name = L"txtA", .text = L"Dupont", .at = {4320, 600, 1140, 315}});
    Frame& delivery =
        add<Frame>({.name = L"fraLivraison", .text = L"Livraison", .at = {180, 1560, 6840, 1620}});
    Frame& mode =
        add<Frame>({.name = L"fraMode", .text = L"Mode", .at = {180, 180, 2400, 1350}, .in = &delivery});
    CheckBox& gift = add<CheckBox>(
        {.name = L"chkCadeau", .text = L"Emballage cadeau", .at = {2820, 360, 2400, 270}, .in = &delivery});
    TextBox& note = add<TextBox>(
        {.name = L"txtNote", .text = L"Livrer le matin.", .at = {2820, 780, 3780, 315}, .in = &delivery});
    CommandButton& save = add<CommandButton>(
        {.name = L"cmdEnregistrer", .text = L"&Enregistrer", .at = {5340, 3330, 1680, 420}});

private:
    template <class Kind>
    Kind& add(const Design& design) {
        auto& made = form.add<Kind>(design);
        made.put(L"Font", newFont(L"Tahoma", 9));
        return made;
    }
    TextBox& labelled(const wchar_t* caption, float top) {
        add<Label>({.name = Text(L"lbl") + caption, .text = caption, .at = {180, top + 45, 900, 255}});
        return add<TextBox>({.name = Text(L"txt") + caption, .at = {1140, top, 1920, 315}});
    }
};

// --- the program ---

class Program {
public:
    explicit Program(Text pictures) : pictures_(std::move(pictures)) {}

    void run() {
        order_.form.show();
        typeIntoFields();
        checkRange();
        disableDelivery();
        moveThePointer();
        clear();
    }

private:
    // A character reaches the field as the form's key-press event would let it through. Characters are those
    // of the ANSI code page.
    template <class Filter>
    void type(TextBox& field, std::string_view typed, Filter&& filter) {
        int refused = 0;
        for (const char character : typed) {
            const auto kept = filter(std::int16_t{static_cast<std::uint8_t>(character)});
            if (kept == 0)
                ++refused;
            else
                SendMessageA(field.handle(), WM_CHAR, static_cast<WPARAM>(kept), 0);
        }
        const Text shown(typed.begin(), typed.end());
        print(L"  tapé " + shown + L" : " + field.getAs<Text>(L"Text") + L", " + inDigits(refused) +
              L" refusés");
    }

    void typeIntoFields() {
        print(L"Touches filtrées");
        const auto filtered = [this](Literal filter, const auto&... more) {
            return [this, filter, more...](std::int16_t key) {
                return convertedTo<std::int16_t>(divers_.call(filter, key, more...).view());
            };
        };
        divers_.call(L"eSetFocus", HostObject(&order_.code));
        demand(GetFocus() == order_.code.handle(), "the first field has no focus");
        type(order_.code, "ab-12 c", filtered(L"KeyMajusc"));
        type(order_.amount, "-1x250.5 F", filtered(L"KeyNum", true));
        type(order_.file, "bon: n*12?.txt", filtered(L"KeyFile"));
        demand(order_.code.getAs<Text>(L"Text") == L"AB-12 C", "letters are not upper-case");
        demand(order_.file.getAs<Text>(L"Text") == L"bon n12.txt", "a character of no file name was kept");
        photograph(L"typed");
    }

    void checkRange() {
        print(L"Critères de sélection");
        {
            const Reader reader(pictures_ + L"\\message");
            const auto accepted =
                divers_.call(L"Ctl_Argument", HostObject(&order_.from), HostObject(&order_.to), true, L"",
                             HostObject(&order_.fromLabel), HostObject(&order_.toLabel));
            demand(convertedTo<bool>(accepted.view()), "the range was refused");
        }
        print(L"  de " + order_.from.getAs<Text>(L"Text") + L" (" + order_.fromLabel.getAs<Text>(L"Caption") +
              L") à " + order_.to.getAs<Text>(L"Text") + L" (" + order_.toLabel.getAs<Text>(L"Caption") +
              L")");
        demand(order_.from.getAs<Text>(L"Text") == L"Dupont" && order_.to.getAs<Text>(L"Text") == L"Martin",
               "the range is not in order");
    }

    void disableDelivery() {
        print(L"Livraison");
        const auto modes = order_.modes();
        BoundObject(BoundObject(modes).getDefault(std::int16_t{1}).view()).put(L"Value", true);
        const auto chosen = convertedTo<std::int16_t>(divers_.call(L"OptionButtonValue", modes).view());
        print(L"  mode choisi : " + inDigits(chosen));
        divers_.call(L"FrameChangeEnabled", HostObject(&order_.form), HostObject(&order_.delivery), false);
        int disabled = 0;
        for (const auto& control : order_.form.controls()) disabled += !IsWindowEnabled(control->handle());
        print(L"  contrôles désactivés : " + inDigits(disabled));
        // The frame, the frame inside it and its three options, a check box and a text box.
        demand(chosen == 1 && disabled == 7, "the frame is not disabled with all it holds");
        photograph(L"disabled");
        divers_.call(L"FrameChangeEnabled", HostObject(&order_.form), HostObject(&order_.delivery), true);
    }

    void moveThePointer() {
        print(L"Pointeur");
        divers_.call(L"MousePlace", HostObject(&order_.save));
        const auto place = divers_.call(L"CtlPosition", HostObject(&order_.save)),
                   position = divers_.call(L"CursorPos");
        demand(place.raw().vt == VT_RECORD && position.raw().vt == VT_RECORD, "a position is no record");
        const auto& button = *static_cast<const records::Rect*>(place.raw().pvRecord);
        const auto& pointer = *static_cast<const records::CursorPosition*>(position.raw().pvRecord);
        print(L"  à " + inDigits(pointer.Cursor_X - button.Left) + L", " +
              inDigits(pointer.Cursor_Y - button.Top) + L" du coin du bouton, qui a " +
              inDigits(button.Right - button.Left) + L" pixels sur " + inDigits(button.Bottom - button.Top));
    }

    void clear() {
        divers_.call(L"FormEffaceCtl", HostObject(&order_.form));
        demand(order_.note.getAs<Text>(L"Text").empty(), "the form is not cleared");
        photograph(L"cleared");
    }

    void photograph(const wchar_t* name) {
        order_.form.refresh();
        demand(savePicture(order_.form.handle(), pictures_ + L"\\" + name), "a picture cannot be saved");
    }

    const Text pictures_;
    Host host_;
    OrderForm order_{host_};
    BoundObject divers_{create(L"Vorla6.VorlaDivers")};
};

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2 || FAILED(OleInitialize(nullptr))) return 2;
    int status = 1;
    try {
        Program(arguments[1]).run();
        print(L"saisie montrée");
        status = 0;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "run-time error %d\n", static_cast<int>(error.number()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    OleUninitialize();
    return status;
}
