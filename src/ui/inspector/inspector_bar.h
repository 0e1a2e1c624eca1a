// SPDX-License-Identifier: GPL-3.0-or-later
// The strip above the canvas: back to the grid, where the photo stands, what is shown and how
// large. Buttons ask; whoever owns the bar does and tells it how things stand.
#pragma once

#include <QWidget>

class QToolButton;

namespace morva {

class ElidedLabel;

class InspectorBar final : public QWidget {
    Q_OBJECT

public:
    explicit InspectorBar(QWidget* parent = nullptr);

    void setPosition(const QString& text);
    void setGuides(bool shown);
    void setShowsResult(bool shows);
    /// `share`: device pixels per pixel of the photo.
    void setZoom(bool isFitted, double share);
    /// Nothing to look at: only the way back works.
    void setHasPhoto(bool has);

    QSize minimumSizeHint() const override;

signals:
    void backWanted();
    void guidesWanted(bool shown);
    void resultWanted(bool shows);
    void fitWanted();
    void zoomInWanted();
    void zoomOutWanted();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Where the words find no room, icons stand alone.
    void setWords(bool shown);
    void measure();

    QToolButton* back_;
    ElidedLabel* position_;
    QToolButton* guides_;
    QToolButton* result_;
    QToolButton* zoomOut_;
    QToolButton* zoom_;
    QToolButton* zoomIn_;
    int widthWithWords_ = 0;
    int widthOfIcons_ = 0;
};

}  // namespace morva
