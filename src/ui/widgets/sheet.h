// SPDX-License-Identifier: GPL-3.0-or-later
// A dialog inside the window: a frame over a scrim that takes the focus until it is closed. Base
// of every sheet and alert; lays out title, sentence, body and footer, and knows nothing of what
// they are about.
#pragma once

#include <QList>
#include <QPointer>
#include <QWidget>

class QFrame;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace morva {

class Sheet : public QWidget {
    Q_OBJECT

public:
    /// Covers `window` when shown. `width` in pixels, less where the window is narrower.
    Sheet(QWidget* window, int width);
    ~Sheet() override;

    /// The sheet that is on screen in this window; null when there is none.
    static Sheet* openIn(const QWidget* window);

    /// On screen, with the focus on its first control.
    void open();
    /// Off screen; the focus goes back to where it was, unless another sheet lies above this one.
    /// Emits `closed`.
    void close();
    bool isOpen() const { return isVisibleTo(parentWidget()); }

signals:
    void closed();
    /// Escape or the button "Cancel".
    void cancelled();

protected:
    void setTitle(const QString& title);
    void setSentence(const QString& sentence);
    /// Beside the title, at the far end of its line.
    void addBesideTitle(QWidget* control);
    /// Where the sheet's own controls go; scrolls when the window is low.
    QVBoxLayout* body() const { return body_; }
    /// Notes and secondary buttons, at the left of the footer, in the order of the calls.
    void addToFooter(QWidget* control, int stretch = 0);
    /// The filled button at the right; Return presses it, but for another button that has the focus
    /// and does not merely switch something.
    QPushButton* addPrimaryButton(const QString& text);
    /// Beside the filled one. Escape presses it; a sheet with one of both takes both keys for it.
    QPushButton* addCancelButton(const QString& text);
    /// Between the other two; no key presses it but its own focus.
    QPushButton* addSecondaryButton(const QString& text);
    /// What has the focus when the sheet opens; else the first in the order of Tab.
    void setFirstControl(QWidget* control) { first_ = control; }

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static QList<Sheet*> openOnes(const QWidget* window);
    void place();
    /// The next control of the sheet after `from` in the order of Tab; null when there is none.
    QWidget* controlAfter(QWidget* from, bool next) const;
    void focusMoved(QWidget* to);

    int width_;
    QFrame* frame_;
    QWidget* head_;
    QHBoxLayout* titleLine_;
    QLabel* title_;
    QLabel* sentence_;
    QScrollArea* scroll_;
    QWidget* content_;
    QVBoxLayout* body_;
    QWidget* foot_;
    QHBoxLayout* footer_;
    /// How many controls stand at the left of the footer.
    int footerStart_ = 0;
    QPushButton* primary_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QPointer<QWidget> first_;
    /// What had the focus before the sheet was opened, and what has it inside.
    QPointer<QWidget> focusBefore_;
    QPointer<QWidget> focusInside_;
};

}  // namespace morva
