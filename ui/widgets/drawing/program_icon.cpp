#include "ui/widgets/drawing/program_icon.h"

#include <QPainter>
#include <QStringList>
#include <vector>

namespace zelvor {
namespace {

// On the 24-unit grid the skin's pictograms use.
constexpr double kGrid = 24.0;

struct Shape {
    enum Kind { RoundRect, Ellipse, Polygon } kind;
    std::vector<QPointF> points; // RoundRect/Ellipse: top-left and size
    double radius = 0;
    bool onTile = false; // painted in white on the tile, else in the accent
};

const std::vector<Shape>& IconShapes() {
    static const std::vector<Shape> shapes = {
        {Shape::RoundRect, {{1, 1}, {22, 22}}, 5, false},
        {Shape::Ellipse, {{5, 14.6}, {6, 4.8}}, 0, true},
        {Shape::Ellipse, {{13, 12.6}, {6, 4.8}}, 0, true},
        {Shape::Polygon, {{9.4, 6.6}, {19, 4.2}, {19, 15}, {17.4, 15}, {17.4, 8.2},
                          {11, 9.8}, {11, 17}, {9.4, 17}}, 0, true},
    };
    return shapes;
}

QColor ShapeColour(const Shape& s, const QColor& tile) {
    return s.onTile ? QColor(Qt::white) : tile;
}

} // namespace

QImage PaintProgramIcon(int size, const QColor& tile) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / kGrid, size / kGrid);
    p.setPen(Qt::NoPen);
    for (const Shape& s : IconShapes()) {
        p.setBrush(ShapeColour(s, tile));
        if (s.kind == Shape::Polygon) {
            p.drawPolygon(s.points.data(), static_cast<int>(s.points.size()));
            continue;
        }
        const QRectF box(s.points[0], QSizeF(s.points[1].x(), s.points[1].y()));
        if (s.kind == Shape::Ellipse)
            p.drawEllipse(box);
        else
            p.drawRoundedRect(box, s.radius, s.radius);
    }
    return image;
}

QString ProgramIconSvg(const QColor& tile) {
    QString svg = QStringLiteral(
        "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"24\" height=\"24\" "
        "viewBox=\"0 0 24 24\">\n");
    for (const Shape& s : IconShapes()) {
        const QString fill = ShapeColour(s, tile).name();
        const QPointF a = s.points[0];
        const QPointF b = s.points.size() > 1 ? s.points[1] : QPointF();
        if (s.kind == Shape::RoundRect) {
            svg += QStringLiteral("  <rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" "
                                  "rx=\"%5\" fill=\"%6\"/>\n")
                       .arg(a.x()).arg(a.y()).arg(b.x()).arg(b.y()).arg(s.radius).arg(fill);
        } else if (s.kind == Shape::Ellipse) {
            svg += QStringLiteral("  <ellipse cx=\"%1\" cy=\"%2\" rx=\"%3\" ry=\"%4\" "
                                  "fill=\"%5\"/>\n")
                       .arg(a.x() + b.x() / 2).arg(a.y() + b.y() / 2)
                       .arg(b.x() / 2).arg(b.y() / 2).arg(fill);
        } else {
            QStringList points;
            for (const QPointF& pt : s.points)
                points << QStringLiteral("%1,%2").arg(pt.x()).arg(pt.y());
            svg += QStringLiteral("  <polygon points=\"%1\" fill=\"%2\"/>\n")
                       .arg(points.join(QLatin1Char(' ')), fill);
        }
    }
    return svg + QStringLiteral("</svg>\n");
}

} // namespace zelvor
