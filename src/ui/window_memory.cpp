// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window_memory.h"

#include <algorithm>

#include <QFile>

namespace morva {

namespace {

constexpr std::size_t mostRecent = 10;

QString fileIn(const std::filesystem::path& folder) {
    return QFile::decodeName((folder / "window.ini").c_str());
}

/// A value of an enumeration whose last case is `last`; the first when the file says nonsense.
template <typename Enum>
Enum enumOf(const QVariant& value, Enum last) {
    const int number = value.toInt();
    return number >= 0 && number <= static_cast<int>(last) ? static_cast<Enum>(number) : Enum{};
}

}  // namespace

WindowMemory::WindowMemory(const std::filesystem::path& dataFolder)
    : settings_(fileIn(dataFolder), QSettings::IniFormat) {}

WindowMemory::Place WindowMemory::place() const {
    Place place;
    place.job = Uuid::parse(settings_.value("place/job").toString().toStdString());
    // Identities of photos may hold bytes that are no text.
    const QByteArray item = settings_.value("place/item").toByteArray();
    if (!item.isEmpty()) place.item = item.toStdString();
    place.mode = enumOf(settings_.value("place/mode"), ViewMode::inspect);
    place.filter = enumOf(settings_.value("place/filter"), StatusFilter::adjusted);
    place.tab = enumOf(settings_.value("place/tab"), RightTab::photo);
    return place;
}

void WindowMemory::remember(const Place& place) {
    settings_.setValue("place/job",
                       place.job ? QString::fromStdString(place.job->text()) : QString());
    settings_.setValue("place/item",
                       place.item ? QByteArray::fromStdString(*place.item) : QByteArray());
    settings_.setValue("place/mode", static_cast<int>(place.mode));
    settings_.setValue("place/filter", static_cast<int>(place.filter));
    settings_.setValue("place/tab", static_cast<int>(place.tab));
    settings_.sync();
}

WindowMemory::Look WindowMemory::look() const {
    Look look;
    look.geometry = settings_.value("look/geometry").toByteArray();
    look.regions = settings_.value("look/regions").toByteArray();
    look.showsSidebar = settings_.value("look/sidebar", true).toBool();
    look.showsPanel = settings_.value("look/panel", true).toBool();
    look.thumbnailHeight = settings_.value("look/thumbnailHeight", 180).toDouble();
    look.showsOverlay = settings_.value("look/overlay", true).toBool();
    if (settings_.contains("look/contrast"))
        look.contrast = enumOf(settings_.value("look/contrast"), Contrast::high);
    return look;
}

void WindowMemory::remember(const Look& look) {
    settings_.setValue("look/geometry", look.geometry);
    settings_.setValue("look/regions", look.regions);
    settings_.setValue("look/sidebar", look.showsSidebar);
    settings_.setValue("look/panel", look.showsPanel);
    settings_.setValue("look/thumbnailHeight", look.thumbnailHeight);
    settings_.setValue("look/overlay", look.showsOverlay);
    if (look.contrast) settings_.setValue("look/contrast", static_cast<int>(*look.contrast));
    settings_.sync();
}

std::vector<WindowMemory::Recent> WindowMemory::recent() const {
    std::vector<Recent> found;
    const int size = settings_.beginReadArray("recent");
    for (int i = 0; i < size; ++i) {
        settings_.setArrayIndex(i);
        found.push_back({settings_.value("folder").toByteArray().toStdString(),
                         settings_.value("photos").toInt(),
                         settings_.value("lastUsed").toDouble()});
    }
    settings_.endArray();
    return found;
}

void WindowMemory::used(const Recent& latest) {
    std::vector<Recent> all = recent();
    std::erase_if(all, [&](const Recent& one) { return one.folder == latest.folder; });
    all.insert(all.begin(), latest);
    if (all.size() > mostRecent) all.resize(mostRecent);
    settings_.beginWriteArray("recent", static_cast<int>(all.size()));
    for (std::size_t i = 0; i < all.size(); ++i) {
        settings_.setArrayIndex(static_cast<int>(i));
        settings_.setValue("folder", QByteArray::fromStdString(all[i].folder.native()));
        settings_.setValue("photos", all[i].photos);
        settings_.setValue("lastUsed", all[i].lastUsed);
    }
    settings_.endArray();
    settings_.sync();
}

}  // namespace morva
