// SPDX-License-Identifier: GPL-3.0-or-later
// Walks over every widget of the window: in all its modes, with every sheet open, at its smallest
// size. Finds what no test of a single view looks for: controls without a name, texts that are cut
// off, texts that nobody can translate.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextDocument>
#include <QTranslator>

#include "app/state_test_support.h"
#include "ui/actions.h"
#include "ui/main_window.h"
#include "ui/widgets/elided_label.h"
#include "ui/widgets/sheet.h"
#include "ui/widgets/theme.h"
#include "ui/widgets/window_test_support.h"

namespace morva {
namespace {

constexpr QSize smallestWindow(1280, 720);
/// In front of every text that a translator was asked for.
constexpr QChar mark(0x2021);

/// A language in which every word is the English one behind a mark.
class MarkedLanguage final : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char*, int) const override {
        return mark + QString::fromUtf8(source).remove("(s)");
    }
};

std::string nameOf(const QWidget& widget) {
    std::string path;
    for (const QWidget* at = &widget; at; at = at->parentWidget())
        path = std::string(at->metaObject()->className()) + (path.empty() ? "" : " > ") + path;
    return path;
}

bool isInsideOfAControl(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return widget.objectName().startsWith("qt_") || qobject_cast<const QAbstractSpinBox*>(parent) ||
           qobject_cast<const QComboBox*>(parent) || qobject_cast<const QLineEdit*>(parent);
}

bool isControl(const QWidget& widget) {
    if (qobject_cast<const QScrollBar*>(&widget) || isInsideOfAControl(widget)) return false;
    return (widget.focusPolicy() & Qt::TabFocus) != 0 ||
           qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QAbstractSlider*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget);
}

/// Text as it is read, without the marks of menus and of rich text.
QString plain(const QString& text) {
    if (!Qt::mightBeRichText(text)) return text;
    QTextDocument document;
    document.setHtml(text);
    return document.toPlainText();
}

/// Everything that a widget shows or tells as text.
QStringList textsOf(const QWidget& widget) {
    QStringList texts{widget.toolTip(), widget.accessibleName(), widget.accessibleDescription()};
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) texts << plain(label->text());
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) texts << button->text();
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        texts << field->placeholderText();
    if (const auto* box = qobject_cast<const QComboBox*>(&widget))
        for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
    if (const auto* field = qobject_cast<const QAbstractSpinBox*>(&widget))
        texts << field->specialValueText();
    return texts;
}

class Walk : public StateTest {
protected:
    /// A window over six cropped photos, two of which ask for a look.
    void open(QSize size = smallestWindow) {
        for (const char* name : {"2.jpg", "5.jpg"}) {
            scripted[name] = Synthetic::portrait();
            scripted[name].headContent.reset();
        }
        state = cropped(6);
        window = std::make_unique<MainWindow>(*state);
        window->resize(size);
        bringUp(*window);
        state->select(item(*state, 1).id);
    }

    /// Calls `look` in every mode of the window and over every sheet.
    void walk(const std::function<void()>& look) {
        const auto at = [&](const char* place) {
            SCOPED_TRACE(place);
            QTest::qWait(80);
            look();
        };
        for (const Act page : {Act::presetPage, Act::photoPage}) {
            act(page);
            at(page == Act::presetPage ? "grid, preset page" : "grid, photo page");
        }
        state->setMode(ViewMode::inspect);
        at("inspector");
        state->setMode(ViewMode::grid);
        for (const auto& [sheet, place] : {std::pair{Act::exportPhotos, "export"},
                                           {Act::backdrops, "backdrops"},
                                           {Act::teachPose, "pose"},
                                           {Act::editRules, "rules"},
                                           {Act::showKeys, "keys"},
                                           {Act::showGuide, "guide"},
                                           {Act::about, "about"}}) {
            act(sheet);
            SCOPED_TRACE(place);
            ASSERT_TRUE(Sheet::openIn(window.get()));
            at("sheet");
            pressKey(*window, Qt::Key_Escape);
        }
        state->removeJob();
        at("welcome");
    }
    void act(Act wanted) const { window->actions().action(wanted)->trigger(); }

    /// Those on screen that a user meets, each told once.
    std::vector<const QWidget*> seen() const {
        std::vector<const QWidget*> widgets;
        const Sheet* sheet = Sheet::openIn(window.get());
        for (const QWidget* widget : window->findChildren<QWidget*>())
            if (widget->isVisible() && (!sheet || sheet->isAncestorOf(widget)))
                widgets.push_back(widget);
        return widgets;
    }

    void expectNothingCutOff() const {
        ASSERT_GT(seen().size(), 10U);
        for (const QWidget* widget : seen()) {
            if (const QString lack = whatIsCutOff(*widget); !lack.isEmpty())
                ADD_FAILURE() << nameOf(*widget) << ": " << qPrintable(lack);
        }
    }

    std::unique_ptr<AppState> state;
    std::unique_ptr<MainWindow> window;

private:
    /// Empty when all of the widget's text is on screen.
    QString whatIsCutOff(const QWidget& widget) const {
        const auto* label = qobject_cast<const QLabel*>(&widget);
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        const QString text = label ? label->text() : button ? button->text() : QString();
        // One that gives way with an ellipsis shows the rest as a tooltip.
        if (text.isEmpty() || qobject_cast<const ElidedLabel*>(&widget)) return {};
        if (label && label->wordWrap()) {
            if (label->height() < label->heightForWidth(label->width()))
                return "\"" + text + "\" needs more lines";
        } else if (widget.width() < widget.minimumSizeHint().width() ||
                   widget.height() < widget.minimumSizeHint().height()) {
            return "\"" + text + "\" needs more room";
        }
        if (isBeyondItsSurroundings(widget)) return "\"" + text + "\" lies beyond its surroundings";
        return {};
    }

    /// Sideways always; downwards only where nothing scrolls.
    bool isBeyondItsSurroundings(const QWidget& widget) const {
        for (const QWidget* at = widget.parentWidget(); at; at = at->parentWidget()) {
            const QRect place(widget.mapTo(at, QPoint(0, 0)), widget.size());
            if (place.left() < 0 || place.right() >= at->width()) return true;
            if (qobject_cast<const QAbstractScrollArea*>(at->parentWidget())) return false;
            if (place.top() < 0 || place.bottom() >= at->height()) return true;
            if (at == window.get()) return false;
        }
        return false;
    }
};

TEST_F(Walk, everyControlHasANameForThoseWhoCannotSeeIt) {
    open();
    walk([&] {
        for (const QWidget* widget : seen()) {
            if (!isControl(*widget)) continue;
            QAccessibleInterface* told =
                QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget));
            ASSERT_TRUE(told);
            EXPECT_FALSE(told->text(QAccessible::Name).trimmed().isEmpty()) << nameOf(*widget);
        }
    });
}

TEST_F(Walk, noTextIsCutOffInTheSmallestWindow) {
    open();
    walk([&] { expectNothingCutOff(); });
}

TEST_F(Walk, noTextIsCutOffInGerman) {
    QTranslator german;
    ASSERT_TRUE(german.load(":/translations/morva_de.qm"));
    QCoreApplication::installTranslator(&german);
    open();
    walk([&] { expectNothingCutOff(); });
}

TEST_F(Walk, noTextIsCutOffWithLargerType) {
    const QFont usual = QApplication::font();
    QFont larger = usual;
    larger.setPointSizeF(usual.pointSizeF() * 1.2);
    QApplication::setFont(larger);
    applyTheme(*qApp, Contrast::ordinary);
    open({1440, 900});
    walk([&] { expectNothingCutOff(); });
    window.reset();
    QApplication::setFont(usual);
    applyTheme(*qApp, Contrast::ordinary);
}

TEST_F(Walk, everyTextCanBeTranslated) {
    MarkedLanguage marked;
    QCoreApplication::installTranslator(&marked);
    open();
    // Names of files, crop types and keys, units, licences: nobody translates them.
    QString given =
        "jpg|JPEG|px|dpi|EXIF|IPTC|Ctrl|Shift|Alt|Del|Esc|Enter|Return|Space|Home|End|"
        "PgUp|PgDown|F\\d+|Up|Down|Left|Right|Ins|Backspace|Tab|Morva|3b";
    for (const CropPreset& preset : state->presets())
        for (const std::string& name : {preset.name, preset.badge})
            given += "|" + QRegularExpression::escape(QString::fromStdString(name));
    const QRegularExpression names("\\b(" + given + ")\\b");
    const QRegularExpression word("[A-Za-z]{2,}");
    walk([&] {
        for (const QWidget* widget : seen()) {
            if (widget->property("given").toBool() || isInsideOfAControl(*widget)) continue;
            for (QString text : textsOf(*widget)) {
                if (text.contains(mark) || text.startsWith('/')) continue;
                EXPECT_FALSE(text.remove(names).contains(word))
                    << nameOf(*widget) << ": \"" << qPrintable(text) << "\"";
            }
        }
    });
}

}  // namespace
}  // namespace morva
