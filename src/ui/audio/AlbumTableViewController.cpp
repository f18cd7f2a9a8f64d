// SPDX-License-Identifier: MIT
#include "ui/audio/AlbumTableViewController.h"

#include "ui/audio/AudioViewController.h"

namespace zelvo::ui {

AlbumTableViewController::AlbumTableViewController(
    const Services& given, AudioViewController* editor, ContentType content)
    : services(given)
    , audioViewController(editor)
    , contentType(content) {}

QString AlbumTableViewController::title() const {
    return contentType == ContentType::albums ? tr("Albums") : tr("Tunes");
}

void AlbumTableViewController::dismissViewController() {
    Q_EMIT dismissed();
}

} // namespace zelvo::ui
