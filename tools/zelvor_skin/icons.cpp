#include "icons.h"

#include <QFont>
#include <QPainterPath>
#include <QPolygonF>
#include <array>
#include <cmath>

namespace zelvor::skin {
namespace {

// Icons are designed on a 24-unit grid and scaled into their box.
constexpr double kGrid = 24.0;

void Stroke(QPainter& p, const QColor& colour, double width) {
    QPen pen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
}

void Fill(QPainter& p, const QColor& colour) {
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
}

QPainterPath RoundedTriangle(QPointF a, QPointF b, QPointF c) {
    QPainterPath path;
    path.moveTo(a);
    path.lineTo(b);
    path.lineTo(c);
    path.closeSubpath();
    return path;
}

void FilledTriangle(QPainter& p, const QColor& colour, QPointF a, QPointF b, QPointF c) {
    // A thin stroke of the same colour rounds the corners.
    p.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(colour);
    p.drawPath(RoundedTriangle(a, b, c));
}

void Speaker(QPainter& p, const QColor& c) {
    Fill(p, c);
    QPainterPath body;
    body.moveTo(3, 9);
    body.lineTo(7, 9);
    body.lineTo(12, 4.5);
    body.lineTo(12, 19.5);
    body.lineTo(7, 15);
    body.lineTo(3, 15);
    body.closeSubpath();
    p.setPen(QPen(c, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(body);
}

void ArrowHead(QPainter& p, const QColor& c, QPointF tip, double angleDegrees, double size) {
    const double a = angleDegrees * M_PI / 180.0;
    const QPointF back(-std::cos(a) * size, -std::sin(a) * size);
    const QPointF side(-std::sin(a) * size * 0.75, std::cos(a) * size * 0.75);
    FilledTriangle(p, c, tip, tip + back + side, tip + back - side);
}

// Two arrows chasing each other round a rounded loop between the heights
// `top` and `bottom` of the grid.
void RepeatLoop(QPainter& p, const QColor& c, double top, double bottom) {
    Stroke(p, c, 2.2);
    QPainterPath upper;
    upper.moveTo(4, bottom - 4.5);
    upper.lineTo(4, top + 3);
    upper.quadTo(4, top, 7, top);
    upper.lineTo(17.5, top);
    p.drawPath(upper);
    QPainterPath lower;
    lower.moveTo(20, top + 4.5);
    lower.lineTo(20, bottom - 3);
    lower.quadTo(20, bottom, 17, bottom);
    lower.lineTo(6.5, bottom);
    p.drawPath(lower);
    ArrowHead(p, c, QPointF(21, top), 0, 3.6);
    ArrowHead(p, c, QPointF(3, bottom), 180, 3.6);
}

void Shuffle(QPainter& p, const QColor& c) {
    Stroke(p, c, 2.2);
    QPainterPath a;
    a.moveTo(3, 7);
    a.lineTo(7, 7);
    a.cubicTo(12, 7, 12, 17, 17, 17);
    a.lineTo(18, 17);
    p.drawPath(a);
    QPainterPath b;
    b.moveTo(3, 17);
    b.lineTo(7, 17);
    b.cubicTo(12, 17, 12, 7, 17, 7);
    b.lineTo(18, 7);
    p.drawPath(b);
    ArrowHead(p, c, QPointF(21.5, 7), 0, 3.6);
    ArrowHead(p, c, QPointF(21.5, 17), 0, 3.6);
}

void Library(QPainter& p, const QColor& c) {
    Fill(p, c);
    p.drawRoundedRect(QRectF(3, 4, 3.2, 16), 1, 1);
    p.drawRoundedRect(QRectF(8, 4, 3.2, 16), 1, 1);
    p.save();
    p.translate(15.5, 4.5);
    p.rotate(-16);
    p.drawRoundedRect(QRectF(0, 0, 3.4, 16.2), 1, 1);
    p.restore();
    p.drawRoundedRect(QRectF(2, 20, 20, 1.8), 0.9, 0.9);
}

void Trash(QPainter& p, const QColor& c) {
    Stroke(p, c, 2.0);
    p.drawLine(QPointF(4, 6.5), QPointF(20, 6.5));
    p.drawLine(QPointF(9.5, 4), QPointF(14.5, 4));
    QPainterPath can;
    can.moveTo(6, 6.5);
    can.lineTo(7.2, 19);
    can.quadTo(7.4, 20.5, 9, 20.5);
    can.lineTo(15, 20.5);
    can.quadTo(16.6, 20.5, 16.8, 19);
    can.lineTo(18, 6.5);
    p.drawPath(can);
    p.drawLine(QPointF(10.2, 10), QPointF(10.4, 17));
    p.drawLine(QPointF(13.8, 10), QPointF(13.6, 17));
}

QPainterPath Star(QPointF centre, double outer, double inner) {
    QPainterPath star;
    for (int i = 0; i < 10; ++i) {
        const double r = i % 2 == 0 ? outer : inner;
        const double a = (-90.0 + i * 36.0) * M_PI / 180.0;
        const QPointF pt(centre.x() + r * std::cos(a), centre.y() + r * std::sin(a));
        i == 0 ? star.moveTo(pt) : star.lineTo(pt);
    }
    star.closeSubpath();
    return star;
}

void Lock(QPainter& p, const QColor& c) {
    Stroke(p, c, 2.4);
    QPainterPath shackle;
    shackle.moveTo(8, 11);
    shackle.lineTo(8, 8);
    shackle.arcTo(QRectF(8, 3.5, 8, 9), 180, -180);
    shackle.lineTo(16, 11);
    p.drawPath(shackle);
    Fill(p, c);
    p.drawRoundedRect(QRectF(5, 10.5, 14, 10.5), 2.2, 2.2);
}

void Note(QPainter& p, const QColor& c) {
    Fill(p, c);
    p.drawEllipse(QRectF(4, 15, 7, 5.6));
    p.drawEllipse(QRectF(13, 13, 7, 5.6));
    p.drawRect(QRectF(9.2, 5, 1.9, 12.5));
    p.drawRect(QRectF(18.2, 3, 1.9, 12.5));
    QPainterPath beam;
    beam.moveTo(9.2, 5);
    beam.lineTo(20.1, 3);
    beam.lineTo(20.1, 6.4);
    beam.lineTo(9.2, 8.4);
    beam.closeSubpath();
    p.drawPath(beam);
}

void ListLines(QPainter& p, const QColor& c, double right) {
    Stroke(p, c, 2.2);
    p.drawLine(QPointF(4, 6), QPointF(right, 6));
    p.drawLine(QPointF(4, 11), QPointF(right, 11));
    p.drawLine(QPointF(4, 16), QPointF(right - 6, 16));
}

void DrawPlay(QPainter& p, const QColor& c) {
    FilledTriangle(p, c, {7.5, 4.5}, {20, 12}, {7.5, 19.5});
}

void DrawPause(QPainter& p, const QColor& c) {
    Fill(p, c);
    p.drawRoundedRect(QRectF(6, 5, 4.2, 14), 1.2, 1.2);
    p.drawRoundedRect(QRectF(13.8, 5, 4.2, 14), 1.2, 1.2);
}

void DrawStop(QPainter& p, const QColor& c) {
    Fill(p, c);
    p.drawRoundedRect(QRectF(6, 6, 12, 12), 2, 2);
}

void DrawNext(QPainter& p, const QColor& c) {
    FilledTriangle(p, c, {5.5, 5.5}, {15.5, 12}, {5.5, 18.5});
    Fill(p, c);
    p.drawRoundedRect(QRectF(16, 5.5, 3, 13), 1, 1);
}

void DrawPrevious(QPainter& p, const QColor& c) {
    FilledTriangle(p, c, {18.5, 5.5}, {8.5, 12}, {18.5, 18.5});
    Fill(p, c);
    p.drawRoundedRect(QRectF(5, 5.5, 3, 13), 1, 1);
}

void DrawVolumeUp(QPainter& p, const QColor& c) {
    Speaker(p, c);
    Stroke(p, c, 2.2);
    p.drawLine(QPointF(15.5, 12), QPointF(21.5, 12));
    p.drawLine(QPointF(18.5, 9), QPointF(18.5, 15));
}

void DrawVolumeDown(QPainter& p, const QColor& c) {
    Speaker(p, c);
    Stroke(p, c, 2.2);
    p.drawLine(QPointF(15.5, 12), QPointF(21.5, 12));
}

void DrawSpeaker(QPainter& p, const QColor& c) {
    Speaker(p, c);
    Stroke(p, c, 1.8);
    p.drawArc(QRectF(9, 7.5, 8, 9), -50 * 16, 100 * 16);
    p.drawArc(QRectF(8, 4, 12, 16), -50 * 16, 100 * 16);
}

void DrawRepeat(QPainter& p, const QColor& c) {
    RepeatLoop(p, c, 7, 17);
}

void DrawRepeatOne(QPainter& p, const QColor& c) {
    // A taller loop makes room for a readable "1" inside it.
    RepeatLoop(p, c, 4.5, 19.5);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(10);
    font.setBold(true);
    QPainterPath one;
    one.addText(0, 0, font, QStringLiteral("1"));
    const QRectF box = one.boundingRect();
    Fill(p, c);
    p.drawPath(one.translated(12 - box.center().x(), 12 - box.center().y()));
}

void DrawHide(QPainter& p, const QColor& c) {
    Stroke(p, c, 2.4);
    p.drawPolyline(QPolygonF({{6, 9}, {12, 15}, {18, 9}}));
}

void DrawDisplayOff(QPainter& p, const QColor& c) {
    Fill(p, c);
    QPainterPath moon;
    moon.addEllipse(QRectF(4, 4, 16, 16));
    QPainterPath bite;
    bite.addEllipse(QRectF(9.5, 1.5, 14, 14));
    p.drawPath(moon.subtracted(bite));
}

void DrawMenu(QPainter& p, const QColor& c) {
    Stroke(p, c, 2.4);
    p.drawLine(QPointF(5, 7), QPointF(19, 7));
    p.drawLine(QPointF(5, 12), QPointF(19, 12));
    p.drawLine(QPointF(5, 17), QPointF(19, 17));
}

void DrawUp(QPainter& p, const QColor& c) {
    Stroke(p, c, 2.4);
    p.drawPolyline(QPolygonF({{6, 11}, {12, 5}, {18, 11}}));
    p.drawLine(QPointF(12, 5.5), QPointF(12, 19));
}

void DrawRefresh(QPainter& p, const QColor& c) {
    Stroke(p, c, 2.2);
    p.drawArc(QRectF(4.5, 4.5, 15, 15), 60 * 16, 250 * 16);
    ArrowHead(p, c, QPointF(18.8, 5.2), -40, 4.2);
}

void DrawStarPlus(QPainter& p, const QColor& c) {
    p.setPen(QPen(c, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(c);
    p.drawPath(Star({10.5, 12.5}, 8.2, 3.6));
    Stroke(p, c, 2.0);
    p.drawLine(QPointF(19, 2.5), QPointF(19, 8.5));
    p.drawLine(QPointF(16, 5.5), QPointF(22, 5.5));
}

void DrawClearList(QPainter& p, const QColor& c) {
    ListLines(p, c, 17);
    Stroke(p, c, 2.2);
    p.drawLine(QPointF(15, 14.5), QPointF(20.5, 20));
    p.drawLine(QPointF(20.5, 14.5), QPointF(15, 20));
}

void DrawPlayList(QPainter& p, const QColor& c) {
    ListLines(p, c, 15);
    FilledTriangle(p, c, {15, 13}, {21, 17}, {15, 21});
}

using GridPainter = void (*)(QPainter&, const QColor&);

// In the order of the Icon enumeration.
constexpr std::array<GridPainter, 23> kGridPainters = {
    DrawPlay,
    DrawPause,
    DrawStop,
    DrawNext,
    DrawPrevious,
    DrawVolumeUp,
    DrawVolumeDown,
    DrawSpeaker,
    DrawRepeat,
    DrawRepeatOne,
    Shuffle,
    Library,
    DrawHide,
    DrawDisplayOff,
    DrawMenu,
    DrawUp,
    DrawRefresh,
    Trash,
    DrawStarPlus,
    DrawClearList,
    DrawPlayList,
    Lock,
    Note,
};
static_assert(kGridPainters.size() == static_cast<std::size_t>(Icon::Note) + 1);

} // namespace

void DrawIcon(QPainter& painter, Icon icon, const QRectF& box, const QColor& colour) {
    painter.save();
    painter.translate(box.topLeft());
    painter.scale(box.width() / kGrid, box.height() / kGrid);
    kGridPainters[static_cast<std::size_t>(icon)](painter, colour);
    painter.restore();
}

} // namespace zelvor::skin
