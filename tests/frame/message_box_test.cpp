// The message to the user is a real box: read and answered by a watcher.
#include "frame/host/message_box.h"

#include <gtest/gtest.h>

#include "support/dialog_watcher.h"

namespace vorla::test {
namespace {

using Texts = std::vector<std::wstring>;

TEST(MessageBox, showsItsTextWithOneButtonUnderTheHostsTitle) {
    const DialogWatcher watcher;
    messageBox(L"Clé erronée : 42 €");
    ASSERT_EQ(1u, watcher.seen().size());
    EXPECT_EQ(Texts{L"Clé erronée : 42 €"}, watcher.seen()[0].texts);
    EXPECT_EQ(Texts{L"OK"}, watcher.seen()[0].buttons);
    // A host without a title of its own is called by its program's name.
    EXPECT_EQ(L"frame_tests", watcher.seen()[0].title);
}

TEST(MessageBox, oneWatcherAnswersSeveral) {
    const DialogWatcher watcher;
    messageBox(L"première");
    messageBox(L"seconde");
    ASSERT_EQ(2u, watcher.seen().size());
    EXPECT_EQ(Texts{L"première"}, watcher.seen()[0].texts);
    EXPECT_EQ(Texts{L"seconde"}, watcher.seen()[1].texts);
}

TEST(MessageBox, warnsUnderATitleOfItsOwn) {
    const DialogWatcher watcher;
    warningBox(L"Accès refusé", L"Erreur");
    ASSERT_EQ(1u, watcher.seen().size());
    EXPECT_EQ(Texts{L"Accès refusé"}, watcher.seen()[0].texts);
    EXPECT_EQ(1u, watcher.seen()[0].buttons.size());
    EXPECT_EQ(L"Erreur", watcher.seen()[0].title);
}

TEST(MessageBox, withAStyleAnswersTheButton) {
    constexpr std::int32_t style = MB_OKCANCEL | MB_ICONSTOP;
    for (const int button : {IDOK, IDCANCEL}) {
        const DialogWatcher watcher(button);
        EXPECT_EQ(button, messageBox(L"Échec\r\nsur deux lignes", style, 0));
        ASSERT_EQ(1u, watcher.seen().size());
        EXPECT_EQ(Texts{L"Échec\r\nsur deux lignes"}, watcher.seen()[0].texts);
        EXPECT_EQ(2u, watcher.seen()[0].buttons.size());
        EXPECT_EQ(L"frame_tests", watcher.seen()[0].title);
    }
}

TEST(DialogWatcher, pressesTheButtonItWasToldTo) {
    const DialogWatcher watcher(IDNO);
    EXPECT_EQ(IDNO, MessageBoxW(nullptr, L"Continuer ?", L"Titre", MB_YESNO | MB_ICONQUESTION));
    ASSERT_EQ(1u, watcher.seen().size());
    EXPECT_EQ(L"Titre", watcher.seen()[0].title);
    EXPECT_EQ(2u, watcher.seen()[0].buttons.size());
}

TEST(DialogWatcher, worksInADialogBeforeItAnswers) {
    const DialogWatcher watcher([](HWND dialog) {
        SetWindowTextW(dialog, L"Autre");
        return IDCANCEL;
    });
    EXPECT_EQ(IDCANCEL, MessageBoxW(nullptr, L"Continuer ?", L"Titre", MB_OKCANCEL));
    ASSERT_EQ(1u, watcher.seen().size());
    EXPECT_EQ(L"Titre", watcher.seen()[0].title);
}

}  // namespace
}  // namespace vorla::test
