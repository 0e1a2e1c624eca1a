// SPDX-License-Identifier: GPL-3.0-or-later
// The rules of a job in their order: rows that are edited, dragged by their grips and moved by
// Alt+Up and Alt+Down. A rule for everything else that stands last stays there.
#pragma once

#include <span>
#include <vector>

#include <QStringList>
#include <QWidget>

#include "crop/crop_rule.h"
#include "model/presets/crop_preset.h"

class QVBoxLayout;

namespace morva {

class RuleRow;

class RuleList final : public QWidget {
    Q_OBJECT

public:
    explicit RuleList(std::vector<CropPreset> presets, QWidget* parent = nullptr);
    ~RuleList() override;

    void setRules(const std::vector<CropRule>& rules);
    std::vector<CropRule> rules() const;
    const std::vector<RuleRow*>& rows() const { return rows_; }
    /// Before the rule for everything else, open for editing.
    void add(const CropRule& rule);
    void setPoses(const QStringList& poses);

signals:
    /// By a person.
    void edited();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Overlay;

    RuleRow* makeRow(const CropRule& rule, std::size_t place);
    void number();
    /// How many rules may change places: all, or all but the last.
    std::size_t movable() const;
    std::size_t placeOf(const RuleRow* row) const;
    void move(std::size_t from, std::size_t to);
    void remove(RuleRow* row);
    void beginDrag(RuleRow* row, const QPoint& place);
    void endDrag();
    /// The gap between rows nearest to `y`, from 0 for above the first.
    std::size_t gapAt(int y) const;

    std::vector<CropPreset> presets_;
    QStringList poses_;
    QVBoxLayout* column_;
    std::vector<RuleRow*> rows_;
    Overlay* overlay_;
    RuleRow* dragged_ = nullptr;
};

}  // namespace morva
