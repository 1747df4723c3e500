// Forms in other shapes and colours: forms.exe FOLDER
//
// Each member of VorlaGraphique that can be seen is used on a form of its own, of which FOLDER then has a
// picture. What cannot be seen is printed. Whatever a member says is checked against the window itself.
#include <ole2.h>
#include <windows.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "frame/contract/enumerations.h"
#include "frame/host/bound_object.h"
#include "support/forms/host.h"
#include "support/png_file.h"
#include "support/window_picture.h"

namespace {

using namespace vorla;
using namespace vorla::forms;

constexpr float pixel = 15;  // in twips

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

class Gallery {
public:
    explicit Gallery(Text folder) : folder_(std::move(folder)) {}

    void showAll() {
        gradient(L"degrade-noir", false);
        gradient(L"degrade-blanc", true);
        roundCorners();
        rotatedText();
        colours();
        menu();
        places();
        sizes();
    }

private:
    Form& shown(const wchar_t* name, float width, float height, Border border = Border::none) {
        auto& form = host_.load(name, {.caption = L"Vorla6",
                                       .border = border,
                                       .controlBox = false,
                                       .insideWidth = width * pixel,
                                       .insideHeight = height * pixel});
        form.show();
        return form;
    }
    void savePicture(Form& form, const Text& name) {
        const auto bitmap = folder_ + L"\\" + name + L".bmp";
        demand(test::saveWindowPicture(form.handle(), bitmap) &&
                   test::saveAsPng(bitmap, folder_ + L"\\" + name + L".png"),
               "a picture cannot be saved");
        DeleteFileW(bitmap.c_str());
        form.unload();
    }

    void gradient(const wchar_t* name, bool toWhite) {
        auto& form = shown(L"frmDegrade", 240, 160);
        graphique_.call(L"FormDegrade", HostObject(&form), std::uint8_t{0x20}, std::uint8_t{0x60},
                        std::uint8_t{0xD0}, toWhite);
        savePicture(form, name);
    }

    void roundCorners() {
        auto& form = shown(L"frmArrondie", 240, 160);
        form.put(L"BackColor", std::int32_t{0xFAF3EC});
        form.refresh();
        graphique_.call(L"FormArrondie", HostObject(&form), std::int16_t{60}, true, std::int32_t{0xC06020});
        savePicture(form, L"arrondie");
    }

    // The name of the library in eight directions around one point, each in one quadrant's lines.
    void rotatedText() {
        auto& form = shown(L"frmTexte", 320, 320);
        form.put(L"BackColor", std::int32_t{0xFFFFFF});
        form.refresh();
        const auto context = form.getAs<std::int32_t>(L"hDC");
        const auto drawing = reinterpret_cast<HDC>(static_cast<LONG_PTR>(context));
        SetBkMode(drawing, TRANSPARENT);
        LOGFONTA look{};
        look.lfHeight = -18;
        std::snprintf(look.lfFaceName, sizeof look.lfFaceName, "Tahoma");
        const Font font(CreateFontIndirectA(&look));
        for (int degrees = 0; degrees < 360; degrees += 45) {
            SelectObject(drawing, font.get());
            demand(convertedTo<bool>(graphique_
                                         .call(L"TextRotate", context, L"   Vorla6", std::int32_t{160},
                                               std::int32_t{160}, static_cast<float>(degrees), 0.0f, true)
                                         .view()),
                   "text cannot be rotated");
        }
        savePicture(form, L"texte");
    }

    // One colour, and what ShiftColor makes of it: added to, blended, multiplied.
    void colours() {
        auto& form = shown(L"frmCouleurs", 320, 120);
        BoundObject drawn{HostObject(&form)};
        constexpr std::int16_t filledBox = 38;
        constexpr int steps = 8;
        for (std::int32_t operation = 0; operation < 3; ++operation)
            for (int i = 0; i < steps; ++i) {
                const double value = operation == 2 ? 0.25 * i : 30.0 * i;
                const auto colour =
                    graphique_.call(L"ShiftColor", std::int32_t{0x604020}, value, value, value, operation);
                const auto left = static_cast<float>(40 * i) * pixel,
                           top = static_cast<float>(40 * operation) * pixel;
                drawn.call(L"Line", filledBox, left, top, left + 40 * pixel, top + 40 * pixel, colour);
            }
        savePicture(form, L"couleurs");
    }

    void menu() {
        constexpr std::int32_t sand = 0xC8E6FF;
        auto& form = shown(L"frmMenu", 320, 80, Border::sizable);
        const HMENU bar = CreateMenu(), file = CreatePopupMenu();
        AppendMenuW(file, MF_STRING, 1, L"&Ouvrir");
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), L"&Fichier");
        SetMenu(form.handle(), bar);
        demand(convertedTo<bool>(
                   graphique_.call(L"MenuBackColor", form.getAs<std::int32_t>(L"hWnd"), sand).view()),
               "the menu has no colour");
        MENUINFO info{};
        info.cbSize = sizeof info;
        info.fMask = MIM_BACKGROUND;
        LOGBRUSH brush{};
        demand(GetMenuInfo(file, &info) && GetObjectW(info.hbrBack, sizeof brush, &brush) != 0 &&
                   brush.lbColor == sand,
               "the menu has another colour");
        std::printf("MenuBackColor: the menu's brush is %06lX\n", brush.lbColor);
        form.unload();
    }

    // A form in the middle of another one.
    void places() {
        auto& parent = shown(L"frmMere", 400, 300);
        MoveWindow(parent.handle(), 100, 80, 400, 300, FALSE);
        auto& form = shown(L"frmFille", 200, 100);
        graphique_.call(L"Centre", HostObject(&form), HostObject(&parent));
        RECT place;
        GetWindowRect(form.handle(), &place);
        demand(place.left == 200 && place.top == 180, "the form is not in the middle");
        std::printf("Centre: a form of 200 x 100 on one of 400 x 300 at (100, 80) stands at (%ld, %ld)\n",
                    place.left, place.top);
        form.unload();
        parent.unload();
    }

    void sizes() {
        const auto number = [this](const wchar_t* what, const Variant& value) {
            std::printf("%ls: %ld\n", what, static_cast<long>(convertedTo<std::int32_t>(value.view())));
        };
        auto& form = shown(L"frmListe", 240, 160, Border::sizable);
        number(L"FormSize, title bar",
               graphique_.call(L"FormSize", HostObject(&form), WS_Flags::wsTitleHeight));
        number(L"FormSize, border",
               graphique_.call(L"FormSize", HostObject(&form), WS_Flags::wsBorderHeight));
        demand(convertedTo<bool>(graphique_.call(L"FormTitle", HostObject(&form)).view()), "no title");
        auto& combo = form.add<ComboBox>({.name = L"cbo", .at = {150, 150, 1500, 315}});
        graphique_.call(L"ComboHeight", HostObject(&combo), std::int16_t{4}, std::int32_t{200});
        demand(SendMessageW(combo.handle(), CB_GETDROPPEDWIDTH, 0, 0) == 200,
               "the list is not as wide as asked");
        number(L"ComboHeight, list width", Variant(std::int32_t{200}));
        number(L"OleColorToRGB, button face", graphique_.call(L"OleColorToRGB", systemColour(COLOR_BTNFACE)));
        const bool isTransparent = convertedTo<bool>(
            graphique_.call(L"FormTransparente", form.getAs<std::int32_t>(L"hWnd"), std::int16_t{128})
                .view());
        const bool isLayered = (GetWindowLongW(form.handle(), GWL_EXSTYLE) & WS_EX_LAYERED) != 0;
        demand(isTransparent == isLayered, "the window says something else about its layering");
        std::printf("FormTransparente: %s\n",
                    isTransparent ? "half transparent" : "False, because this Windows has no code");
        form.unload();
    }

    const Text folder_;
    Host host_;
    BoundObject graphique_{create(L"Vorla6.VorlaGraphique")};
};

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2 || FAILED(OleInitialize(nullptr))) return 2;
    int status = 1;
    try {
        Gallery(arguments[1]).showAll();
        std::printf("all forms shown\n");
        status = 0;
    } catch (const RuntimeError& error) {
        std::fprintf(stderr, "run-time error %d\n", static_cast<int>(error.number()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    OleUninitialize();
    return status;
}
