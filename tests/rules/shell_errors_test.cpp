#include "system/shell_errors.h"

#include <gtest/gtest.h>

#include <map>

#include "shown.h"

namespace vorla {
namespace {

TEST(ShellErrors, AreUpTo32) {
    EXPECT_TRUE(isShellError(-1));
    EXPECT_TRUE(isShellError(0));
    EXPECT_TRUE(isShellError(32));
    EXPECT_FALSE(isShellError(33));
    EXPECT_FALSE(isShellError(42));
}

TEST(ShellErrors, HaveATextEach) {
    const std::map<std::int32_t, TextView> texts{
        {2, L"Fichier non trouv\u00E9"},
        {3, L"Chemin non trouv\u00E9"},
        {5, L"Acc\u00E8s refus\u00E9"},
        {8, L"Pas assez de m\u00E9moire"},
        {11, L"Fichier EXE invalide"},
        {26, L"Une violation de partage est apparue"},
        {27, L"Association incompl\u00E8te ou invalide"},
        {28, L"DDE D\u00E9lai d\u00E9pass\u00E9"},
        {29, L"DDE transaction abort\u00E9e"},
        {30, L"DDE occup\u00E9"},
        {31, L"Pas d'association enregistr\u00E9e pour ce type de fichier"},
        {32, L"DLL non trouv\u00E9e"},
    };
    for (std::int32_t code = -2; code <= 40; ++code) {
        const auto known = texts.find(code);
        EXPECT_EQ(shown(shellErrorText(code)),
                  shown(known == texts.end() ? TextView(L"Erreur inconnue") : known->second))
            << code;
    }
}

}  // namespace
}  // namespace vorla
