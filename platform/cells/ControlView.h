// SPDX-License-Identifier: MIT
#pragma once

#include "platform/cells/NamedImage.h"

#include <QPointF>
#include <QRectF>

#include <optional>

namespace platform {

struct MouseEvent {
    enum class Kind { Down, Dragged, Up };
    Kind kind = Kind::Down;
    QPointF location; // points, in the view
};

class TextViewDelegate;

// The view that a cell is drawn in and that hands it its mouse events.
class ControlView {
public:
    virtual ~ControlView();

    // How an image is laid over what is there.
    struct ImageDrawing {
        QRectF target;
        // The part of the image that is drawn; the whole image when empty.
        QRectF source;
        enum class Compositing { SourceOver };
        Compositing compositing = Compositing::SourceOver;
        double fraction = 1; // opacity
        // Draws the image upright where the view's y axis points down.
        bool respectsFlipped = false;
    };
    virtual void drawImage(const NamedImage& image, const ImageDrawing& drawing) = 0;

    // The next event of a mouse button that is down; none when there will be no more.
    [[nodiscard]] virtual std::optional<MouseEvent> nextMouseEvent() = 0;

    // Who wants to hear of clicks on attachments; null for nobody.
    [[nodiscard]] virtual TextViewDelegate* textViewDelegate() { return nullptr; }
};

} // namespace platform
