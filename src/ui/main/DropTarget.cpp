// SPDX-License-Identifier: MIT
#include "ui/main/DropTarget.h"

#include <QMimeData>

#include <utility>

namespace zelvo::ui {

namespace {

/// A copy, even if the other program would move the file: nobody wants to lose it.
void takeAsCopy(QDropEvent& event) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

DropTarget::DropTarget(QQuickItem* parent)
    : QQuickItem(parent) {
    setFlag(ItemAcceptsDrops);
}

QString DropTarget::promise() const {
    switch (offer) {
    case Offer::document:
        return tr("Drop to open the document");
    case Offer::picture:
        return tr("Drop it to use it as the image");
    case Offer::object:
        return tr("Drop it to use it as the object");
    case Offer::sound:
        return tr("Drop it to use it as the music");
    case Offer::fonts:
        return tr("Drop to import fonts");
    case Offer::archive:
        return tr("Drop to import fonts or 3D objects");
    case Offer::link:
        return tr("This is a link. Save the picture as a file first.");
    case Offer::unknown:
        return tr("Only pictures, videos, music, 3D objects, fonts and ZIP archives can be opened");
    case Offer::none:
        break;
    }
    return {};
}

void DropTarget::dragEnterEvent(QDragEnterEvent* event) {
    setOffer(FileSystem::offerOf(*event->mimeData()));
    takeAsCopy(*event); // also what cannot be opened: the view then says so
}

void DropTarget::dragMoveEvent(QDragMoveEvent* event) {
    takeAsCopy(*event);
}

void DropTarget::dragLeaveEvent(QDragLeaveEvent*) {
    setOffer(Offer::none);
}

void DropTarget::dropEvent(QDropEvent* event) {
    setOffer(Offer::none);
    takeAsCopy(*event);
    (void)main->open(*event->mimeData());
}

void DropTarget::setOffer(Offer kind) {
    if (std::exchange(offer, kind) == kind)
        return;
    main->showOffer(kind);
    Q_EMIT offerChanged();
}

} // namespace zelvo::ui
