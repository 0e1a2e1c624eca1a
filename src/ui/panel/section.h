// SPDX-License-Identifier: GPL-3.0-or-later
// One part of the right panel: a heading with its main value, and what is below it. Collapsible on
// the preset's page, always open on the photo's. Knows nothing of what it holds.
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace morva {

class SectionHead;

class Section final : public QWidget {
    Q_OBJECT

public:
    enum class Kind { collapsible, open };

    /// Without a title there is no heading.
    explicit Section(const QString& title, Kind kind = Kind::collapsible,
                     QWidget* parent = nullptr);

    QVBoxLayout* body() const { return body_; }
    /// What stands at the right of the heading: of a collapsible section only while it is closed.
    void setValue(const QString& value);
    QString value() const;
    bool isOpen() const;
    void setOpen(bool open);
    /// Takes the keyboard focus; null for a section that is always open.
    QWidget* head() const;

signals:
    void toggled(bool open);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SectionHead* head_;
    QWidget* content_;
    QVBoxLayout* body_;
};

}  // namespace morva
