#include "Icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace {

// Everything is drawn on a field of 24 by 24 units. The colours are readable on light and on dark panels.
constexpr int Field = 24;
constexpr QRgb Blue = 0xff2f6fc4;
constexpr QRgb LightBlue = 0xff6fa8ee;
constexpr QRgb Green = 0xff2f9e4f;
constexpr QRgb Red = 0xffcf3f37;
constexpr QRgb Grey = 0xff7d8590;

QPolygonF triangle(QPointF centre, double size) {
    return QPolygonF(
        {centre + QPointF(-size * 0.75, -size), centre + QPointF(size, 0), centre + QPointF(-size * 0.75, size)});
}

void drawFolder(QPainter& painter) {
    QPainterPath back;
    back.addRoundedRect(QRectF(1, 3, 10, 8), 1.5, 1.5);
    back.addRoundedRect(QRectF(1, 5.5, 22, 15), 1.5, 1.5);
    painter.fillPath(back.simplified(), QColor::fromRgba(Blue));
    QPainterPath front;
    front.addRoundedRect(QRectF(1, 9, 22, 11.5), 1.5, 1.5);
    painter.fillPath(front, QColor::fromRgba(LightBlue));
}

void drawBadge(QPainter& painter, QRgb colour) {
    painter.setPen(QPen(Qt::white, 1.5));
    painter.setBrush(QColor::fromRgba(colour));
    painter.drawEllipse(QPointF(16.5, 16.5), 6.5, 6.5);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
}

void drawIdle(QPainter& painter) {
    drawFolder(painter);
    drawBadge(painter, Grey);
    painter.drawRect(QRectF(14, 13.5, 1.8, 6));
    painter.drawRect(QRectF(17.2, 13.5, 1.8, 6));
}

void drawMonitoring(QPainter& painter) {
    drawFolder(painter);
    drawBadge(painter, Green);
    painter.drawPolygon(triangle(QPointF(16.5, 16.5), 3.4));
}

void drawRefresh(QPainter& painter) {
    painter.setPen(QPen(QColor::fromRgba(Green), 2.6, Qt::SolidLine, Qt::FlatCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(4.5, 4.5, 15, 15), 20 * 16, 290 * 16);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(Green));
    painter.drawPolygon(QPolygonF({QPointF(14.5, 10), QPointF(22.5, 11.2), QPointF(21.5, 3.2)}));
}

void drawExit(QPainter& painter) {
    painter.setPen(QPen(QColor::fromRgba(Grey), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({QPointF(13, 3), QPointF(4, 3), QPointF(4, 21), QPointF(13, 21)}));
    painter.setPen(QPen(QColor::fromRgba(Red), 2.4));
    painter.drawLine(QPointF(9, 12), QPointF(19, 12));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(Red));
    painter.drawPolygon(triangle(QPointF(19, 12), 4));
}

void drawFilled(QPainter& painter, QRgb colour, const QPolygonF& shape) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(colour));
    painter.drawPolygon(shape);
}

void draw(QPainter& painter, Icons::Picture picture) {
    switch (picture) {
    case Icons::Picture::Idle:
        return drawIdle(painter);
    case Icons::Picture::Monitoring:
        return drawMonitoring(painter);
    case Icons::Picture::Start:
        return drawFilled(painter, Green, triangle(QPointF(11, 12), 9));
    case Icons::Picture::Stop:
        return drawFilled(painter, Red, QPolygonF(QRectF(4.5, 4.5, 15, 15)));
    case Icons::Picture::RunNow:
        return drawFilled(painter, Blue, triangle(QPointF(11, 12), 8));
    case Icons::Picture::RunMarked:
        drawFilled(painter, Blue, triangle(QPointF(6.5, 12), 6));
        return drawFilled(painter, Blue, triangle(QPointF(16.5, 12), 6));
    case Icons::Picture::Refresh:
        return drawRefresh(painter);
    case Icons::Picture::Exit:
        return drawExit(painter);
    }
}

} // namespace

QIcon Icons::Icon(Picture picture) {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(double(size) / Field, double(size) / Field);
        painter.setPen(Qt::NoPen);
        draw(painter, picture);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}
