// SPDX-License-Identifier: GPL-3.0-or-later
// The sections of the preset's form that say how the crops are written.
#include <algorithm>
#include <array>

#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include "ui/panel/color_button.h"
#include "ui/panel/form_rows.h"
#include "ui/panel/icon_text.h"
#include "ui/panel/preset_form_controls.h"
#include "ui/panel/preset_form_words.h"
#include "ui/widgets/icons.h"
#include "ui/widgets/morva_style.h"
#include "ui/widgets/theme.h"

namespace morva {

using FormRows::addRow;
using FormRows::inOneLine;

namespace {

constexpr int mostStars = 5;
/// Beyond these no print and no screen is served.
constexpr int leastPixels = 100;
constexpr int mostPixels = 20000;

constexpr std::array<ColorButton::Swatch, 12> backdropColors{
    {{0xFFFFFF, QT_TRANSLATE_NOOP("ColorButton", "White")},
     {0xE6E6E6, QT_TRANSLATE_NOOP("ColorButton", "Very light gray")},
     {0xBFBFBF, QT_TRANSLATE_NOOP("ColorButton", "Light gray")},
     {0x8C8C8C, QT_TRANSLATE_NOOP("ColorButton", "Middle gray")},
     {0x595959, QT_TRANSLATE_NOOP("ColorButton", "Dark gray")},
     {0x262626, QT_TRANSLATE_NOOP("ColorButton", "Nearly black")},
     {0xA9BBD0, QT_TRANSLATE_NOOP("ColorButton", "Light blue")},
     {0x4F6D92, QT_TRANSLATE_NOOP("ColorButton", "Blue")},
     {0x9FB7A5, QT_TRANSLATE_NOOP("ColorButton", "Light green")},
     {0x5D7A66, QT_TRANSLATE_NOOP("ColorButton", "Green")},
     {0xD9C7AE, QT_TRANSLATE_NOOP("ColorButton", "Sand")},
     {0x8A6F58, QT_TRANSLATE_NOOP("ColorButton", "Brown")}}};

/// What a flat backdrop begins with: the middle gray.
constexpr Rgb firstBackdropColor{0.55, 0.55, 0.55};

bool replaces(const CropPreset& preset) {
    return preset.exportSettings.backdrop == BackdropMode::replace;
}
bool usesPlate(const CropPreset& preset) {
    return replaces(preset) && preset.exportSettings.plateURL.has_value();
}
bool makesBackdrop(const CropPreset& preset) {
    return replaces(preset) && !preset.exportSettings.plateURL;
}

QIcon starsIcon(int stars) {
    constexpr int side = 12;
    constexpr qreal scale = 2;
    QPixmap pixmap(QSize(stars * (side + 2), 16) * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    for (int i = 0; i < stars; ++i)
        painter.drawPixmap(
            i * (side + 2), 2,
            iconPixmap(QStringLiteral("star"), Theme::current().review, side, scale));
    return QIcon(pixmap);
}

}  // namespace

QWidget* PresetForm::sizeBox() {
    auto* box = new ChoiceBox(tr("Size"));
    box->setPlaceholderText(tr("Another size"));
    for (const ExportSize& size : exportSizes()) box->addItem(said(size.label));
    connect(box, &QComboBox::activated, this, [this](int place) {
        const ExportSize& size = exportSizes()[static_cast<std::size_t>(place)];
        edit("Change Export Size", [&](CropPreset& preset) {
            preset.exportSettings.pixelWidth = size.pixelWidth;
            preset.exportSettings.pixelHeight = size.pixelHeight;
            preset.exportSettings.dpi = ExportSettings::eightByTen300().dpi;
        });
    });
    add(box, "export.size", [box](Preset preset) {
        const auto sizes = exportSizes();
        const auto at = std::ranges::find_if(sizes, [&](const ExportSize& size) {
            return size.pixelWidth == preset.exportSettings.pixelWidth &&
                   size.pixelHeight == preset.exportSettings.pixelHeight;
        });
        box->setCurrentIndex(at == sizes.end() ? -1 : static_cast<int>(at - sizes.begin()));
    });
    return labelled(tr("Size"), box);
}

QWidget* PresetForm::ratioWarning() {
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Metrics::gap);
    auto* words = new IconText(TextRole::small);
    auto* fix = new QPushButton(tr("Fix height"));
    fix->setObjectName(QStringLiteral("fixHeight"));
    fix->setProperty("morvaSmall", true);
    line->addWidget(words, 1);
    line->addWidget(fix);
    connect(fix, &QPushButton::clicked, this, [this] {
        edit("Fix Height", [](CropPreset& preset) {
            preset.exportSettings.pixelHeight = RatioCheck::fittingHeight(preset);
        });
    });
    fields_.push_back({fix,
                       [row, words](Preset preset) {
                           const bool passes = RatioCheck::passes(preset);
                           row->setVisible(!passes);
                           if (!passes)
                               words->set(QStringLiteral("warning"), &Theme::review,
                                          PresetFormWords::wrongRatio(preset), &Theme::review);
                       },
                       {}});
    row->hide();
    return row;
}

QWidget* PresetForm::ratingBox() {
    auto* box = new ChoiceBox(tr("Star rating"));
    box->setIconSize({scaled(72), 16});
    box->addItem(tr("None"));
    for (int stars = 1; stars <= mostStars; ++stars)
        box->addItem(starsIcon(stars), tr("%n star(s)", "", stars));
    connect(box, &QComboBox::activated, this, [this](int stars) {
        const auto rating = stars > 0 ? std::optional(stars) : std::nullopt;
        // The preset's rating wins over the one of its export settings; both say what is written.
        edit("Change Star Rating", [&](CropPreset& preset) {
            preset.exportRating = rating;
            preset.exportSettings.starRating = rating;
        });
    });
    add(box, "exportRating", [box](Preset preset) {
        box->setCurrentIndex(
            std::clamp(preset.settingsForExport().starRating.value_or(0), 0, mostStars));
    });
    return box;
}

void PresetForm::buildExport() {
    QVBoxLayout* body = open(Part::exports, tr("Export"));
    body->addWidget(sizeBox());
    QFormLayout* rows = FormRows::add(body);
    const SliderRow::Scale pixels{1, {}, 0, leastPixels, mostPixels, 10};
    auto* width = spin<QSpinBox>(
        {"export.pixelWidth", tr("Width in pixels"), "Change Export Size", pixels},
        [](auto& preset) -> auto& { return preset.exportSettings.pixelWidth; });
    auto* height = spin<QSpinBox>(
        {"export.pixelHeight", tr("Height in pixels"), "Change Export Size", pixels},
        [](auto& preset) -> auto& { return preset.exportSettings.pixelHeight; });
    fields_.push_back(
        {height, [height](Preset preset) { setFaulty(*height, !RatioCheck::passes(preset)); }, {}});
    addRow(rows, tr("Pixels"),
           inOneLine({width, makeLabel(QStringLiteral("×"), TextRole::body, Ink::text2), height}),
           width);
    rows->addRow(ratioWarning());
    rows->addRow(slider(
        {"export.jpegQuality", tr("JPEG quality"), "Change JPEG Quality", inPercent(1, 100, 1)},
        [](auto& preset) -> auto& { return preset.exportSettings.jpegQuality; }));
    auto* dpi = spin<PlainSpinBox>(
        {"export.dpi", tr("Resolution"), "Change Resolution", {1, tr(" dpi"), 0, 36, 2400, 1}},
        [](auto& preset) -> auto& { return preset.exportSettings.dpi; });
    addRow(rows, tr("Resolution"), inOneLine({dpi}), dpi);
    addRow(rows, tr("Star rating"), ratingBox());
    body->addWidget(check(
        "export.preserveMetadata", tr("Keep EXIF / IPTC metadata"), "Change Kept Metadata",
        [](auto& preset) -> auto& { return preset.exportSettings.preserveMetadata; }));
}

QWidget* PresetForm::plateRow() {
    auto* field = new QLineEdit;
    field->setReadOnly(true);
    field->setPlaceholderText(tr("None"));
    field->setMinimumWidth(scaled(72));
    auto* choose = new QPushButton(tr("Choose…"));
    auto* clear = new QPushButton(icon(QStringLiteral("close")), {});
    clear->setAccessibleName(tr("No backdrop image"));
    clear->setToolTip(tr("No backdrop image"));
    setLook(*clear, ButtonLook::quiet);
    for (QPushButton* button : {choose, clear}) button->setProperty("morvaSmall", true);
    askForPlate = [this]() -> std::optional<std::filesystem::path> {
        const QString file =
            QFileDialog::getOpenFileName(window(), tr("Choose a backdrop image"), {},
                                         tr("Images (*.jpg *.jpeg *.png *.tif *.tiff *.heic)"));
        if (file.isEmpty()) return std::nullopt;
        return std::filesystem::path(file.toStdString());
    };
    const auto take = [this](const std::optional<std::filesystem::path>& plate) {
        edit("Change Backdrop",
             [&](CropPreset& preset) { preset.exportSettings.plateURL = plate; });
    };
    connect(choose, &QPushButton::clicked, this, [this, take] {
        if (const auto plate = askForPlate()) take(plate);
    });
    connect(clear, &QPushButton::clicked, this, [take] { take(std::nullopt); });
    add(
        field, "export.plateURL",
        [field](Preset preset) {
            const auto& plate = preset.exportSettings.plateURL;
            field->setText(plate ? pathText(plate->filename()) : QString());
            field->setToolTip(plate ? pathText(*plate) : QString());
        },
        replaces);
    add(
        choose, "choosePlate", [](Preset) {}, replaces);
    add(
        clear, "clearPlate", [](Preset) {}, usesPlate);
    return labelled(tr("Backdrop"), inOneLine({field, choose, clear}, 0), field);
}

QWidget* PresetForm::backdropColorRow() {
    auto* box = new ChoiceBox(tr("Color"));
    box->addItem(tr("Matched to photo"));
    box->addItem(tr("Chosen"));
    auto* color = new ColorButton(tr("Color of the backdrop"), backdropColors);
    const auto take = [this](const std::optional<Rgb>& picked) {
        edit("Change Backdrop Color",
             [&](CropPreset& preset) { preset.exportSettings.backdropColor = picked; });
    };
    connect(box, &QComboBox::activated, this, [take](int place) {
        take(place == 0 ? std::nullopt : std::optional(firstBackdropColor));
    });
    connect(color, &ColorButton::picked, this, [take](const Rgb& picked) { take(picked); });
    add(
        box, "backdropColorChoice",
        [box](Preset preset) { box->setCurrentIndex(preset.exportSettings.backdropColor ? 1 : 0); },
        makesBackdrop);
    add(
        color, "export.backdropColor",
        [color](Preset preset) {
            color->setColor(preset.exportSettings.backdropColor.value_or(firstBackdropColor));
        },
        [](Preset preset) { return makesBackdrop(preset) && preset.exportSettings.backdropColor; });
    return labelled(tr("Color"), inOneLine({box, color}, 0), box);
}

void PresetForm::buildBackdrop() {
    QVBoxLayout* body = open(Part::backdrop, tr("Backdrop"));
    body->addWidget(choice(
        "export.backdrop", tr("Outside the photo"), "Change Backdrop",
        [](auto& preset) -> auto& { return preset.exportSettings.backdrop; }));
    QLabel* detail = makeWrappedLabel(
        tr("The child is cut out with a soft matte (refined around the hair) and placed on the "
           "backdrop, so crops wider than the photo come out clean and no longer go to Review for "
           "canvas."),
        TextRole::small, Ink::text3);
    body->addWidget(detail);
    fields_.push_back(
        {detail, [detail](Preset preset) { detail->setVisible(replaces(preset)); }, {}});
    body->addWidget(plateRow());
    body->addWidget(backdropColorRow());
    body->addWidget(slider(
        {"export.backdropVignette", tr("Vignette"), "Change Vignette", inPercent(0, 100, 1)},
        [](auto& preset) -> auto& { return preset.exportSettings.backdropVignette; },
        makesBackdrop));
    body->addWidget(slider(
        {"export.plateZoom", tr("Backdrop zoom"), "Change Backdrop Zoom", plateZoomInPercent()},
        [](auto& preset) -> auto& { return preset.exportSettings.plateZoom; }, usesPlate));
    body->addWidget(check(
        "export.floorReflection", tr("Floor reflection under the feet"), "Change Floor Reflection",
        [](auto& preset) -> auto& { return preset.exportSettings.floorReflection; }, replaces));
}

}  // namespace morva
