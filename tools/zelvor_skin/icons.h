#pragma once
// The skin's pictograms, drawn from paths so that they scale to any button.
// Each fits the square box it is given and is painted in one colour.

#include <QColor>
#include <QPainter>
#include <QRectF>

namespace zelvor::skin {

enum class Icon {
    Play,
    Pause,
    Stop,
    Next,
    Previous,
    VolumeUp,
    VolumeDown,
    Speaker,
    Repeat,
    RepeatOne,
    Shuffle,
    Library,
    Hide,
    DisplayOff,
    Menu,
    Up,
    Refresh,
    Trash,
    StarPlus,
    ClearList,
    PlayList,
    Lock,
    Note,
};

void DrawIcon(QPainter& painter, Icon icon, const QRectF& box, const QColor& colour);

} // namespace zelvor::skin
