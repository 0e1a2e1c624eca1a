// SPDX-License-Identifier: GPL-3.0-or-later
// A dialog inside the window: a frame over a scrim that takes the focus until it is closed. Base
// of every sheet and alert; lays out title, sentence, body and footer, and knows nothing of what
// they are about.
#pragma once

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

    /// The sheet that is on screen in this window; null when there is none.
    static Sheet* openIn(const QWidget* window);

    /// On screen, with the focus on `first` or on its first control; again focuses what had it.
    void open(QWidget* first = nullptr);
    /// Off screen; the focus goes back to where it was. Emits `closed`.
    void close();
    bool isOpen() const { return isVisibleTo(parentWidget()); }

signals:
    void closed();
    /// Escape or the button "Cancel".
    void cancelled();

protected:
    void setTitle(const QString& title);
    void setSentence(const QString& sentence);
    /// Where the sheet's own controls go; scrolls when the window is low.
    QVBoxLayout* body() const { return body_; }
    /// Notes and secondary buttons, at the left of the footer.
    QHBoxLayout* footer() const { return footer_; }
    /// The filled button at the right; Return presses it.
    QPushButton* addPrimaryButton(const QString& text);
    /// Beside the filled one. Escape presses it; without one Escape presses the filled button.
    QPushButton* addCancelButton(const QString& text);
    QFrame* frame() const { return frame_; }

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void place();

    int width_;
    QFrame* frame_;
    QLabel* title_;
    QLabel* sentence_;
    QScrollArea* scroll_;
    QWidget* content_;
    QVBoxLayout* body_;
    QWidget* footerLine_;
    QHBoxLayout* footer_;
    QPushButton* primary_ = nullptr;
    QPushButton* cancel_ = nullptr;
    QPointer<QWidget> focusBefore_;
};

}  // namespace morva
