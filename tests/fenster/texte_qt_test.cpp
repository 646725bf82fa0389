#include "platform/controls/lists.h"
#include "platform/controls/rich_text_box.h"
#include "tests/buehne.h"
#include "tests/fenster/ein_backend.h"

#include <gtest/gtest.h>

#include <QListView>
#include <QScrollBar>
#include <QTextEdit>

namespace klopfmeise {
namespace {

/// The editor of own texts in its frame.
class TexteQt : public testing::Test, public Bühne {
protected:
    TexteQt()
        : Bühne(nullptr, &klopfmeise::backend()) {
        klopfmeise::backend().setRuntime(runtime);
        dateiSchreiben(texte() / "Ein langer Name eines Textes.txt", "a");
        öffnen(L"einst0");
        kindWählen();
        runtime.show(L"einstTexte");
        settle();
    }
    ~TexteQt() override { unloadAll(runtime); }
    std::filesystem::path texte() const { return daten() / "Data" / "Texte"; }
    template <class Widget>
    Widget& widget() {
        return *viewOf(*runtime.active()).widget().findChild<Widget*>();
    }
};

TEST_F(TexteQt, WhatIsTypedGoesToTheFileAndANewTextTakesTheKeysAtOnce) {
    widget<QTextEdit>().setFocus();
    strike(widget<QTextEdit>(), Qt::Key_Return, "\r");
    strike(widget<QTextEdit>(), Qt::Key_Adiaeresis, "ä");
    EXPECT_EQ(readRtf(dateiinhalt(texte() / "Text_001.txt")).document.plainText(), L"Hallo\r\nä");
    user.click(L"cmdNeuerText");
    user.type(L"Neu\r");
    settle();
    strike(widget<QTextEdit>(), Qt::Key_X, "x");
    EXPECT_EQ(readRtf(dateiinhalt(texte() / "Neu.txt")).document.plainText(), L"x");
}

TEST_F(TexteQt, ANameTooLongForTheListCanBeScrolledTo) {
    EXPECT_GT(widget<QListView>().horizontalScrollBar()->maximum(), 0);
}

} // namespace
} // namespace klopfmeise
