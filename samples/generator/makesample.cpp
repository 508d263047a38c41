// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Builds the sample theme kept in samples/: a Theme Type 1 theme with every section filled, every
// animation moving, sounds and a tune. Everything is drawn or synthesised here from fixed tables,
// without fonts or clocks, so running it again gives the same bytes.

#include "theme/animatedelement.h"
#include "theme/description.h"
#include "common/safefile.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "theme/themesections.h"
#include "package/resourcepackage.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <iterator>
#include <numbers>
#include <vector>

namespace {

constexpr double pi = std::numbers::pi;

// A fixed-seed generator: the same stars, sparks and noise on every run and every machine.
class Lcg
{
public:
    explicit Lcg(quint32 seed) : m_state(seed) {}
    double unit()
    {
        m_state = m_state * 1664525u + 1013904223u;
        return double(m_state >> 8) / double(1u << 24);
    }

private:
    quint32 m_state;
};

// ---------------------------------------------------------------------------------------------
// Pictures

// Numbers are drawn as seven-segment digits so that no installed font can change a pixel.
constexpr quint8 digitSegments[10] = {0x3F, 0x06, 0x5B, 0x4F, 0x66, 0x6D, 0x7D, 0x07, 0x7F, 0x6F};

void drawDigit(QPainter &p, int digit, const QRectF &box)
{
    const qreal t = box.width() / 4.5;
    const qreal w = box.width(), h = box.height(), x = box.x(), y = box.y();
    const QRectF segments[7] = {
        {x, y, w, t},                         // a: top
        {x + w - t, y, t, h / 2},             // b: upper right
        {x + w - t, y + h / 2, t, h / 2},     // c: lower right
        {x, y + h - t, w, t},                 // d: bottom
        {x, y + h / 2, t, h / 2},             // e: lower left
        {x, y, t, h / 2},                     // f: upper left
        {x, y + (h - t) / 2, w, t},           // g: middle
    };
    for (int s = 0; s < 7; ++s) {
        if (digitSegments[digit] & (1 << s))
            p.drawRect(segments[s]);
    }
}

void drawNumber(QPainter &p, int number, QPointF topLeft, qreal height, const QColor &color)
{
    const QString digits = QString::number(number);
    const qreal width = height * 0.55, gap = height * 0.2;
    p.save();
    p.setPen(Qt::NoPen);
    for (const QColor &ink : {QColor(0, 0, 0, 200), color}) {
        const QPointF shift = ink == color ? QPointF() : QPointF(1.5, 1.5);
        p.setBrush(ink);
        for (qsizetype i = 0; i < digits.size(); ++i) {
            const QPointF at = topLeft + shift + QPointF(i * (width + gap), 0);
            drawDigit(p, digits.at(i).digitValue(), QRectF(at, QSizeF(width, height)));
        }
    }
    p.restore();
}

void drawBlock(QPainter &p, const QRectF &r, const QColor &base)
{
    p.save();
    p.setPen(Qt::NoPen);
    p.setBrush(base);
    p.drawRect(r);
    const qreal b = std::max<qreal>(2, r.width() / 8);
    p.setBrush(base.lighter(160));
    p.drawPolygon(QPolygonF({r.topLeft(), r.topRight(), r.topRight() + QPointF(-b, b),
                             r.topLeft() + QPointF(b, b), r.bottomLeft() + QPointF(b, -b),
                             r.bottomLeft()}));
    p.setBrush(base.darker(170));
    p.drawPolygon(QPolygonF({r.bottomRight(), r.bottomLeft(), r.bottomLeft() + QPointF(b, -b),
                             r.bottomRight() + QPointF(-b, -b), r.topRight() + QPointF(-b, b),
                             r.topRight()}));
    p.restore();
}

void drawVerticalGradient(QPainter &p, const QRectF &r, const QColor &top, const QColor &bottom)
{
    QLinearGradient g(r.topLeft(), r.bottomLeft());
    g.setColorAt(0, top);
    g.setColorAt(1, bottom);
    p.fillRect(r, g);
}

// Animated elements: phase runs from 0 up to (not including) 1 over the frames, so loops are seamless.
using FramePainter = void (*)(QPainter &p, QSize size, double phase, int frameNumber);

void paintBackground(QPainter &p, QSize size, double phase, int frameNumber)
{
    const QRectF all(QPointF(), size);
    drawVerticalGradient(p, all, QColor::fromHsvF(0.62, 0.85, 0.45), QColor::fromHsvF(0.78, 0.9, 0.1));

    Lcg stars(7);
    for (int i = 0; i < 45; ++i) {
        const QPointF at(stars.unit() * size.width(), stars.unit() * size.height());
        const double twinkle = 0.5 + 0.5 * std::sin(2 * pi * (phase + stars.unit()));
        p.fillRect(QRectF(at, QSizeF(2, 2)), QColor::fromHsvF(0.15, 0.2, 0.4 + 0.6 * twinkle));
    }

    const QPointF centre(96 + 48 * std::cos(2 * pi * phase), 150 + 36 * std::sin(2 * pi * phase));
    QRadialGradient planet(centre - QPointF(12, 12), 44);
    planet.setColorAt(0, QColor(255, 230, 160));
    planet.setColorAt(0.6, QColor(230, 120, 60));
    planet.setColorAt(1, QColor(90, 30, 40));
    p.setPen(Qt::NoPen);
    p.setBrush(planet);
    p.drawEllipse(centre, 34, 34);

    // A column of blocks keeps falling past the planet.
    for (int i = 0; i < 4; ++i) {
        const double y = std::fmod(phase * 352 + i * 88, 352.0) - 16;
        drawBlock(p, QRectF(24 + i * 40, y, 16, 16), QColor::fromHsvF(0.1 + 0.22 * i, 0.8, 0.9));
    }
    drawNumber(p, frameNumber, QPointF(160, 322), 20, Qt::white);
}

void paintInternetBackground(QPainter &p, QSize size, double phase, int frameNumber)
{
    drawVerticalGradient(p, QRectF(QPointF(), size), QColor(20, 90, 110), QColor(10, 25, 60));
    p.setPen(QPen(QColor(80, 200, 220, 110), 5));
    const double shift = phase * 24;
    for (double x = -size.height() + shift; x < size.width(); x += 24)
        p.drawLine(QPointF(x, size.height()), QPointF(x + size.height(), 0));
    const double pulse = 14 + 8 * std::sin(2 * pi * phase);
    p.setPen(QPen(QColor(255, 255, 255, 180), 3));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(48, 88), pulse, pulse);
    drawNumber(p, frameNumber, QPointF(76, 152), 16, QColor(255, 240, 120));
}

void paintBlocks(QPainter &p, QSize size, double phase, int)
{
    // Six columns by five rows of 16-pixel blocks, each with a glint crossing it.
    constexpr int tile = 16;
    for (int row = 0; row < size.height() / tile; ++row) {
        for (int column = 0; column < size.width() / tile; ++column) {
            const QRectF r(column * tile, row * tile, tile, tile);
            drawBlock(p, r, QColor::fromHsvF(column / 6.0, 0.75 - row * 0.08, 0.95 - row * 0.08));
            const double glint = std::fmod(phase + (row + column) / 10.0, 1.0) * 3 * tile - tile;
            QLinearGradient shine(r.topLeft() + QPointF(glint, 0), r.topLeft() + QPointF(glint + 6, 6));
            shine.setColorAt(0, QColor(255, 255, 255, 0));
            shine.setColorAt(0.5, QColor(255, 255, 255, 170));
            shine.setColorAt(1, QColor(255, 255, 255, 0));
            p.fillRect(r.adjusted(2, 2, -2, -2), shine);
        }
    }
}

void paintNextWindow(QPainter &p, QSize size, double phase, int frameNumber)
{
    const QRectF all(QPointF(), size);
    drawVerticalGradient(p, all, QColor(60, 60, 80), QColor(20, 20, 30));
    p.setPen(QPen(QColor(170, 170, 200), 3));
    p.setBrush(Qt::NoBrush);
    p.drawRect(all.adjusted(1.5, 1.5, -1.5, -1.5));

    // A T piece turning once over the loop.
    p.save();
    p.translate(all.center());
    p.rotate(360 * phase);
    const QPointF cells[4] = {{-1.5, -1}, {-0.5, -1}, {0.5, -1}, {-0.5, 0}};
    for (const QPointF &c : cells)
        drawBlock(p, QRectF(c * 14, QSizeF(14, 14)), QColor(180, 80, 220));
    p.restore();
    drawNumber(p, frameNumber, QPointF(63, 61), 10, QColor(255, 240, 120));
}

void paintSpecialWindow(QPainter &p, QSize size, double phase, int)
{
    const QRectF all(QPointF(), size);
    drawVerticalGradient(p, all, QColor(90, 20, 20), QColor(30, 5, 5));
    p.setPen(QPen(QColor(220, 160, 90), 1));
    p.setBrush(Qt::NoBrush);
    for (int slot = 0; slot < size.width() / 16; ++slot)
        p.drawRect(QRectF(slot * 16 + 1.5, 1.5, 13, 13));
    const double x = phase * (size.width() + 40) - 20;
    QRadialGradient sweep(QPointF(x, 8), 22);
    sweep.setColorAt(0, QColor(255, 250, 200, 230));
    sweep.setColorAt(1, QColor(255, 200, 80, 0));
    p.fillRect(all, sweep);
}

void paintBurst(QPainter &p, QPointF centre, double t)
{
    // t runs 0..1 through one explosion: a flash that swells, cools and leaves sparks.
    const double radius = 4 + 26 * t;
    QRadialGradient fire(centre, radius);
    fire.setColorAt(0, QColor(255, 255, 220, int(255 * (1 - t))));
    fire.setColorAt(0.4, QColor(255, 190, 40, int(230 * (1 - t))));
    fire.setColorAt(0.8, QColor(220, 50, 20, int(200 * (1 - t * t))));
    fire.setColorAt(1, QColor(60, 0, 0, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(fire);
    p.drawEllipse(centre, radius, radius);
    for (int i = 0; i < 8; ++i) {
        const double angle = 2 * pi * i / 8 + 0.3;
        const QPointF at = centre + QPointF(std::cos(angle), std::sin(angle)) * (6 + 24 * t);
        p.fillRect(QRectF(at - QPointF(2, 2), QSizeF(4, 4)), QColor(255, 220, 120, int(255 * (1 - t))));
    }
}

void paintExplosion(QPainter &p, QSize size, double phase, int)
{
    p.fillRect(QRectF(QPointF(), size), Qt::black);
    for (int cell = 0; cell < size.width() / 64; ++cell)
        paintBurst(p, QPointF(cell * 64 + 32, 32), std::fmod(phase + cell / 3.0, 1.0));
}

void paintBomb(QPainter &p, QSize size, double phase, int)
{
    p.fillRect(QRectF(QPointF(), size), Qt::black);
    Lcg sparks(11);
    for (int cell = 0; cell < size.width() / 64; ++cell) {
        const double t = std::fmod(phase + cell / 3.0, 1.0);
        const QPointF centre(cell * 64 + 30, 36);
        const double glow = 0.5 + 0.5 * std::sin(2 * pi * t);
        QRadialGradient halo(centre, 30);
        halo.setColorAt(0.6, QColor(255, 40, 20, int(140 * glow)));
        halo.setColorAt(1, QColor(255, 40, 20, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(halo);
        p.drawEllipse(centre, 30, 30);

        QRadialGradient body(centre - QPointF(6, 6), 22);
        body.setColorAt(0, QColor(130, 130, 150));
        body.setColorAt(1, QColor(15, 15, 25));
        p.setBrush(body);
        p.drawEllipse(centre, 18, 18);

        const QPointF tip = centre + QPointF(16, -24);
        p.setPen(QPen(QColor(200, 170, 110), 2.5));
        p.drawLine(centre + QPointF(10, -14), tip);
        p.setPen(QPen(QColor(255, 230, 90), 1.5));
        const double reach = 3 + 5 * (0.5 + 0.5 * std::sin(4 * pi * t));
        for (int ray = 0; ray < 6; ++ray) {
            const double angle = 2 * pi * (ray + sparks.unit() * 0.5) / 6;
            p.drawLine(tip, tip + QPointF(std::cos(angle), std::sin(angle)) * reach);
        }
    }
}

// The sample's choices for one animated element; its fields come from the element table.
struct SampleAnimation {
    AnimatedElementId element;
    const char *root;
    const char *extension; // "bmp" or "jpg"
    int frames;
    int delay;             // milliseconds
    bool reverse;
    FramePainter paint;
};

const SampleAnimation animations[] = {
    {AnimatedElementId::Background, "bg", "jpg", 8, 120, false, paintBackground},
    {AnimatedElementId::InternetBackground, "inetbg", "bmp", 4, 150, false, paintInternetBackground},
    {AnimatedElementId::Blocks, "blocks", "bmp", 8, 80, false, paintBlocks},
    {AnimatedElementId::NextBlock, "next", "bmp", 6, 110, false, paintNextWindow},
    {AnimatedElementId::SpecialWindow, "special", "bmp", 5, 90, true, paintSpecialWindow},
    {AnimatedElementId::Explosion, "explode", "jpg", 8, 60, false, paintExplosion},
    {AnimatedElementId::Bomb, "bomb", "bmp", 6, 100, false, paintBomb},
};

using StillPainter = void (*)(QPainter &p, QSize size, int variant);

void paintScreen(QPainter &p, QSize size, int variant)
{
    // One look for all interface screens; the variant turns the hue and moves the panels.
    const QRectF all(QPointF(), size);
    const double hue = std::fmod(0.55 + variant * 0.097, 1.0);
    drawVerticalGradient(p, all, QColor::fromHsvF(hue, 0.6, 0.55), QColor::fromHsvF(hue, 0.9, 0.12));
    p.fillRect(QRectF(0, 0, size.width(), 56), QColor::fromHsvF(hue, 0.9, 0.25));
    drawNumber(p, variant + 1, QPointF(16, 10), 36, QColor(255, 240, 160));

    p.setPen(QPen(QColor(255, 255, 255, 160), 2));
    const int panels = 2 + variant % 3;
    const qreal width = (size.width() - 32 - (panels - 1) * 16) / qreal(panels);
    for (int i = 0; i < panels; ++i) {
        p.setBrush(QColor::fromHsvF(std::fmod(hue + 0.5, 1.0), 0.3, 0.2, 0.55));
        p.drawRoundedRect(QRectF(16 + i * (width + 16), 80, width, size.height() - 150), 10, 10);
    }
    for (int column = 0; column * 20 < size.width(); ++column) {
        const int height = 1 + (column * 7 + variant * 3) % 3;
        for (int row = 0; row < height; ++row)
            drawBlock(p, QRectF(column * 20, size.height() - 20 * (row + 1), 20, 20),
                      QColor::fromHsvF(std::fmod(hue + column * 0.13, 1.0), 0.7, 0.85));
    }
}

void paintMenu(QPainter &p, QSize size, int)
{
    for (int i = 0; i < 5; ++i) {
        const QRectF button(8, 8 + i * 46, size.width() - 16, 38);
        QLinearGradient face(button.topLeft(), button.bottomLeft());
        face.setColorAt(0, QColor::fromHsvF(0.08 + i * 0.15, 0.6, 0.95));
        face.setColorAt(1, QColor::fromHsvF(0.08 + i * 0.15, 0.9, 0.45));
        p.setPen(QPen(Qt::white, 2));
        p.setBrush(face);
        p.drawRoundedRect(button, 8, 8);
        drawNumber(p, i + 1, button.topLeft() + QPointF(12, 8), 22, Qt::white);
    }
}

void paintDoor(QPainter &p, QSize size, int variant)
{
    // variant 1 is the right-hand door, the mirror of the left one.
    const QRectF all(QPointF(), size);
    QLinearGradient metal(all.topLeft(), all.topRight());
    metal.setColorAt(variant == 1 ? 1 : 0, QColor(70, 80, 95));
    metal.setColorAt(variant == 1 ? 0 : 1, QColor(170, 180, 195));
    p.fillRect(all, metal);
    p.setPen(QPen(QColor(40, 40, 50), 2));
    for (qreal y = 24; y < size.height(); y += 48)
        p.drawLine(QPointF(0, y), QPointF(size.width(), y));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(230, 200, 60));
    for (qreal y = 12; y < size.height(); y += 48) {
        p.drawEllipse(QPointF(8, y), 3, 3);
        p.drawEllipse(QPointF(size.width() - 8, y), 3, 3);
    }
    const qreal stripe = variant == 1 ? 0 : size.width() - 10;
    p.fillRect(QRectF(stripe, 0, 10, size.height()), QColor(220, 170, 0));
}

void paintWin(QPainter &p, QSize size, int)
{
    const QRectF all(QPointF(), size);
    drawVerticalGradient(p, all, QColor(250, 210, 60), QColor(180, 90, 0));
    QPainterPath star;
    const QPointF c = all.center();
    const qreal outer = size.height() * 0.42, inner = outer * 0.45;
    for (int i = 0; i < 10; ++i) {
        const double angle = -pi / 2 + pi * i / 5;
        const qreal r = i % 2 ? inner : outer;
        const QPointF at = c + QPointF(std::cos(angle), std::sin(angle)) * r;
        if (i == 0)
            star.moveTo(at);
        else
            star.lineTo(at);
    }
    star.closeSubpath();
    p.setPen(QPen(QColor(120, 40, 0), 2));
    p.setBrush(QColor(255, 250, 210));
    p.drawPath(star);
}

void paintHeightLed(QPainter &p, QSize size, int)
{
    p.fillRect(QRectF(QPointF(), size), QColor(15, 15, 15));
    const int leds = size.height() / 16;
    for (int i = 0; i < leds; ++i) {
        const double level = double(i) / (leds - 1); // 0 at the bottom
        const QColor lit = QColor::fromHsvF(0.33 * (1 - level), 0.9, 0.95);
        drawBlock(p, QRectF(2, size.height() - 16 * (i + 1) + 2, size.width() - 4, 12), lit);
    }
}

void paintWarning(QPainter &p, QSize size, int)
{
    p.fillRect(QRectF(QPointF(), size), Qt::black);
    const qreal w = size.width(), h = size.height();
    p.setPen(QPen(Qt::black, 3));
    p.setBrush(QColor(255, 200, 0));
    p.drawPolygon(QPolygonF({QPointF(w / 2, 4), QPointF(w - 4, h - 6), QPointF(4, h - 6)}));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    p.drawRect(QRectF(w / 2 - 3, h * 0.3, 6, h * 0.35));
    p.drawEllipse(QPointF(w / 2, h * 0.76), 4, 4);
}

void paintTeamFont(QPainter &p, QSize size, int)
{
    p.fillRect(QRectF(QPointF(), size), Qt::black);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(120, 255, 140));
    for (int digit = 0; digit < 10; ++digit)
        drawDigit(p, digit, QRectF(digit * 16 + 3, 1, 10, 14));
}

// One row of a page's row list (interfaceRowKeys, miscImageKeys), in the list's order.
struct SampleStill {
    const char *file;
    QSize size;
    StillPainter paint;
    int variant;
};

// Interface screens, in the order their rows are shown.
const SampleStill interfaceScreens[] = {
    {"main.jpg", QSize(640, 480), paintScreen, 0},
    {"options.jpg", QSize(640, 480), paintScreen, 1},
    {"themes.jpg", QSize(640, 480), paintScreen, 2},
    {"server.jpg", QSize(640, 480), paintScreen, 3},
    {"chat.jpg", QSize(640, 480), paintScreen, 4},
    {"connect.jpg", QSize(640, 480), paintScreen, 5},
    {"highscore.jpg", QSize(640, 480), paintScreen, 6},
    {"misc.jpg", QSize(640, 480), paintScreen, 7},
    {"menu.bmp", QSize(160, 240), paintMenu, 0},
    {"inet.jpg", QSize(640, 480), paintScreen, 8},
};

const SampleStill miscImages[] = {
    {"doorleft.bmp", QSize(96, 352), paintDoor, 0},
    {"doorright.bmp", QSize(96, 352), paintDoor, 1},
    {"inetdoor.bmp", QSize(96, 176), paintDoor, 0},
    {"win.jpg", QSize(192, 96), paintWin, 0},
    {"inetwin.bmp", QSize(96, 48), paintWin, 0},
    {"heightled.bmp", QSize(16, 352), paintHeightLed, 0},
    {"warning.bmp", QSize(64, 64), paintWarning, 0},
    {"teamfont.bmp", QSize(160, 16), paintTeamFont, 0},
};

// The swatches' colours, in the order of colorKeys.
const char *const colors[] = {
    "255,220,120",       "200,230,255",
    "180,255,200",     "255,200,240",
    "160,200,255",      "255,180,140",
    "140,240,240",    "255,255,255",
    "190,190,190", "255,215,0",
    "192,192,192", "205,127,50",
};

// ---------------------------------------------------------------------------------------------
// Sounds: 22,050 Hz, 16-bit mono PCM, mixed from a few partials each.

constexpr int sampleRate = 22050;

enum class Wave { Sine, Square, Triangle, Noise };

struct Partial {
    double start;   // seconds into the sound
    double length;  // seconds
    double fromHz;  // the pitch glides from here...
    double toHz;    // ...to here; for noise these are the low-pass corner
    Wave wave;
    double volume;
    double decay;   // exponential fade per second
};

// One row of soundRowKeys, in its order.
struct SampleSound {
    const char *file;
    std::initializer_list<Partial> partials;
};

const SampleSound sounds[] = {
    {"rotate.wav", {{0, 0.07, 660, 990, Wave::Square, 0.25, 8}}},
    {"drop.wav",
     {{0, 0.22, 150, 55, Wave::Sine, 0.9, 10}, {0, 0.08, 1800, 400, Wave::Noise, 0.8, 25}}},
    {"start.wav",
     {{0.0, 0.12, 523, 523, Wave::Triangle, 0.6, 3}, {0.12, 0.12, 659, 659, Wave::Triangle, 0.6, 3},
      {0.24, 0.12, 784, 784, Wave::Triangle, 0.6, 3}, {0.36, 0.35, 1047, 1047, Wave::Triangle, 0.6, 4}}},
    {"lose.wav",
     {{0, 0.8, 440, 110, Wave::Square, 0.22, 1.5}, {0.05, 0.75, 330, 82, Wave::Triangle, 0.4, 1.5}}},
    {"win.wav",
     {{0.0, 0.12, 523, 523, Wave::Square, 0.18, 2}, {0.13, 0.12, 659, 659, Wave::Square, 0.18, 2},
      {0.26, 0.12, 784, 784, Wave::Square, 0.18, 2}, {0.39, 0.6, 1047, 1047, Wave::Square, 0.18, 2.5},
      {0.39, 0.6, 659, 659, Wave::Triangle, 0.35, 2.5}, {0.39, 0.6, 784, 784, Wave::Triangle, 0.35, 2.5}}},
    {"line.wav", {{0, 0.28, 400, 1600, Wave::Sine, 0.7, 4}}},
    {"tetris.wav",
     {{0.00, 0.15, 400, 900, Wave::Sine, 0.6, 3}, {0.12, 0.15, 500, 1100, Wave::Sine, 0.6, 3},
      {0.24, 0.15, 600, 1300, Wave::Sine, 0.6, 3}, {0.36, 0.15, 700, 1600, Wave::Sine, 0.6, 3},
      {0.50, 0.40, 1568, 1568, Wave::Triangle, 0.3, 5}, {0.50, 0.40, 2093, 2093, Wave::Triangle, 0.25, 5}}},
    {"explode.wav",
     {{0, 0.7, 1200, 150, Wave::Noise, 1.1, 4}, {0, 0.5, 90, 35, Wave::Sine, 0.6, 5}}},
    {"chat.wav",
     {{0, 0.15, 880, 880, Wave::Sine, 0.6, 10}, {0.14, 0.3, 1320, 1320, Wave::Sine, 0.6, 8}}},
    {"click.wav", {{0, 0.02, 2000, 1500, Wave::Square, 0.3, 60}}},
    {"shield.wav",
     {{0, 0.9, 523, 523, Wave::Triangle, 0.3, 1.2}, {0, 0.9, 527, 527, Wave::Triangle, 0.3, 1.2},
      {0, 0.9, 784, 784, Wave::Sine, 0.25, 1.2}, {0, 0.9, 1568, 1575, Wave::Sine, 0.12, 1.5}}},
};

void appendLittleEndian(QByteArray &bytes, quint32 value, int size)
{
    for (int i = 0; i < size; ++i)
        bytes.append(char((value >> (8 * i)) & 0xFF));
}

QByteArray waveFile(std::initializer_list<Partial> partials)
{
    double seconds = 0;
    for (const Partial &partial : partials)
        seconds = std::max(seconds, partial.start + partial.length);
    std::vector<double> mix(size_t(std::ceil((seconds + 0.02) * sampleRate)), 0.0);

    Lcg noise(12345);
    for (const Partial &partial : partials) {
        const int first = int(partial.start * sampleRate);
        const int count = int(partial.length * sampleRate);
        double cycle = 0, filtered = 0;
        for (int i = 0; i < count; ++i) {
            const double t = double(i) / sampleRate;
            const double hz = partial.fromHz + (partial.toHz - partial.fromHz) * i / count;
            cycle = std::fmod(cycle + hz / sampleRate, 1.0);
            double value = 0;
            switch (partial.wave) {
            case Wave::Sine: value = std::sin(2 * pi * cycle); break;
            case Wave::Square: value = cycle < 0.5 ? 1 : -1; break;
            case Wave::Triangle: value = 4 * std::abs(cycle - 0.5) - 1; break;
            case Wave::Noise:
                filtered += (1 - std::exp(-2 * pi * hz / sampleRate)) * (noise.unit() * 2 - 1 - filtered);
                value = filtered;
                break;
            }
            // Short ramps at both ends keep the speaker from clicking.
            const double envelope = std::min({1.0, t / 0.004, (partial.length - t) / 0.01})
                                    * std::exp(-partial.decay * t);
            mix[size_t(first + i)] += value * envelope * partial.volume;
        }
    }

    QByteArray pcm;
    for (const double value : mix)
        appendLittleEndian(pcm, quint32(qint16(std::clamp(value * 0.8, -1.0, 1.0) * 32767)), 2);

    QByteArray wav("RIFF");
    appendLittleEndian(wav, quint32(36 + pcm.size()), 4);
    wav.append("WAVEfmt ");
    appendLittleEndian(wav, 16, 4);         // format chunk size
    appendLittleEndian(wav, 1, 2);          // PCM
    appendLittleEndian(wav, 1, 2);          // mono
    appendLittleEndian(wav, sampleRate, 4);
    appendLittleEndian(wav, sampleRate * 2, 4);
    appendLittleEndian(wav, 2, 2);          // bytes per sample frame
    appendLittleEndian(wav, 16, 2);         // bits per sample
    wav.append("data");
    appendLittleEndian(wav, quint32(pcm.size()), 4);
    return wav + pcm;
}

// ---------------------------------------------------------------------------------------------
// Music: a Standard MIDI File, format 0, twelve bars of 4/4 at 144 beats a minute (20 s).

constexpr int ticksPerBeat = 480;
constexpr int beatsPerMinute = 144;
constexpr int melodyChannel = 0, bassChannel = 1, drumChannel = 9;
constexpr int squareLeadProgram = 80, fingeredBassProgram = 33;
constexpr int kick = 36, snare = 38, closedHat = 42, crash = 49;

struct Note {
    int pitch;    // 0 is a rest
    double beats;
};

// An A-minor tune; four beats a bar.
const Note melody[] = {
    {76, 1}, {81, 0.5}, {79, 0.5}, {76, 1}, {72, 1},
    {74, 0.5}, {76, 0.5}, {77, 1}, {76, 1}, {74, 1},
    {72, 1}, {76, 0.5}, {74, 0.5}, {72, 1}, {71, 1},
    {69, 1.5}, {71, 0.5}, {72, 1}, {0, 1},
    {77, 1}, {81, 0.5}, {79, 0.5}, {77, 1}, {76, 1},
    {74, 0.5}, {77, 0.5}, {76, 1}, {74, 1}, {72, 1},
    {71, 1}, {72, 0.5}, {74, 0.5}, {76, 1}, {68, 1},
    {69, 3}, {0, 1},
    {72, 0.5}, {74, 0.5}, {76, 1}, {76, 0.5}, {77, 0.5}, {79, 1},
    {81, 1}, {79, 0.5}, {77, 0.5}, {76, 1}, {74, 1},
    {72, 1}, {71, 1}, {72, 0.5}, {71, 0.5}, {68, 1},
    {69, 4},
};

const int bassRoots[] = {45, 50, 48, 45, 41, 50, 40, 45, 48, 41, 40, 45};
constexpr int bars = int(std::size(bassRoots));

struct MidiEvent {
    quint32 tick;
    int order; // at one tick: tempo and programs, then note ends, then note starts
    QByteArray bytes;
};

QByteArray bytesOf(std::initializer_list<int> values)
{
    QByteArray bytes;
    for (const int value : values)
        bytes.append(char(value));
    return bytes;
}

void addNote(std::vector<MidiEvent> &events, int channel, int pitch, int velocity, quint32 tick,
             quint32 length)
{
    events.push_back({tick, 2, bytesOf({0x90 | channel, pitch, velocity})});
    events.push_back({tick + length, 1, bytesOf({0x80 | channel, pitch, 0})});
}

QByteArray variableLength(quint32 value)
{
    QByteArray bytes(1, char(value & 0x7F));
    while (value >>= 7)
        bytes.prepend(char(0x80 | (value & 0x7F)));
    return bytes;
}

void appendBigEndian(QByteArray &bytes, quint32 value, int size)
{
    for (int i = size - 1; i >= 0; --i)
        bytes.append(char((value >> (8 * i)) & 0xFF));
}

QByteArray midiFile()
{
    std::vector<MidiEvent> events;
    QByteArray tempo("\xFF\x51\x03", 3);
    appendBigEndian(tempo, 60'000'000 / beatsPerMinute, 3);
    events.push_back({0, 0, tempo});
    events.push_back({0, 0, QByteArray("\xFF\x58\x04\x04\x02\x18\x08", 7)});
    events.push_back({0, 0, bytesOf({0xC0 | melodyChannel, squareLeadProgram})});
    events.push_back({0, 0, bytesOf({0xC0 | bassChannel, fingeredBassProgram})});

    quint32 tick = 0;
    for (const Note &note : melody) {
        const auto length = quint32(note.beats * ticksPerBeat);
        if (note.pitch)
            addNote(events, melodyChannel, note.pitch, 100, tick, length * 9 / 10);
        tick += length;
    }

    constexpr quint32 eighth = ticksPerBeat / 2, bar = 4 * ticksPerBeat;
    for (int b = 0; b < bars; ++b) {
        const quint32 start = quint32(b) * bar;
        if (b == bars - 1) {
            addNote(events, bassChannel, bassRoots[b], 100, start, bar - eighth);
            addNote(events, drumChannel, kick, 110, start, eighth);
            addNote(events, drumChannel, crash, 100, start, bar - eighth);
            continue;
        }
        for (int e = 0; e < 8; ++e) {
            const quint32 at = start + quint32(e) * eighth;
            addNote(events, bassChannel, bassRoots[b] + (e % 2 ? 12 : 0), 90, at, eighth - 40);
            addNote(events, drumChannel, closedHat, e % 2 ? 60 : 80, at, eighth / 2);
            if (e == 0 || e == 4)
                addNote(events, drumChannel, kick, 110, at, eighth);
            if (e == 2 || e == 6)
                addNote(events, drumChannel, snare, 95, at, eighth);
        }
    }

    std::stable_sort(events.begin(), events.end(), [](const MidiEvent &a, const MidiEvent &b) {
        return a.tick != b.tick ? a.tick < b.tick : a.order < b.order;
    });
    QByteArray track;
    quint32 now = 0;
    for (const MidiEvent &event : events) {
        track += variableLength(event.tick - now) + event.bytes;
        now = event.tick;
    }
    track += variableLength(ticksPerBeat) + QByteArray("\xFF\x2F\x00", 3);

    QByteArray file("MThd");
    appendBigEndian(file, 6, 4);
    appendBigEndian(file, 0, 2); // format 0: one track
    appendBigEndian(file, 1, 2);
    appendBigEndian(file, ticksPerBeat, 2);
    file += "MTrk";
    appendBigEndian(file, quint32(track.size()), 4);
    return file + track;
}

// ---------------------------------------------------------------------------------------------

template <typename Paint>
QImage drawImage(QSize size, Paint paint)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    paint(p);
    p.end();
    return image;
}

/** Writes the theme's files into a work folder and records them in the document, in package order. */
class SampleBuilder
{
public:
    SampleBuilder(const QString &workFolder, ThemeDocument &doc) : m_work(workFolder), m_doc(doc) {}

    bool build()
    {
        identity();
        colorsAndSwitches();
        return animatedElements() && stills(interfaceScreens, interfaceRowKeys) && stills(miscImages, miscImageKeys)
               && soundsAndMusic();
    }

    const QStringList &files() const { return m_files; }
    const QString &error() const { return m_error; }

private:
    void identity()
    {
        m_doc.setText(FieldKey::name, QStringLiteral("Stakko Sample"));
        m_doc.setText(FieldKey::developer, QStringLiteral("Stakko Theme Maker"));
        m_doc.setText(FieldKey::version, QStringLiteral("1.0"));
        m_doc.setNumber(FieldKey::themeType, 1);
        m_doc.setText(FieldKey::resourceFile, QStringLiteral("StakkoSample.zip"));
    }

    bool animatedElements()
    {
        for (const SampleAnimation &a : animations) {
            const AnimatedElement &e = ::animatedElements[a.element];
            for (int n = 1; n <= a.frames; ++n) {
                const QImage frame = drawImage(e.frame, [&](QPainter &p) {
                    a.paint(p, e.frame, double(n - 1) / a.frames, n);
                });
                if (!saveImage(frame, QLatin1StringView(a.root) + QString::number(n) + u'.'
                                          + QLatin1StringView(a.extension)))
                    return false;
            }
            const QString extension = QLatin1StringView(a.extension);
            m_doc.setText(e.imageField, QLatin1StringView(a.root) + u'1' + u'.' + extension);
            m_doc.setText(e.rootField, QLatin1StringView(a.root));
            m_doc.setText(e.extensionField, extension);
            m_doc.setText(e.frameCountField, QString::number(a.frames));
            m_doc.setText(e.delayField, QString::number(a.delay));
            if (e.animatedFields[0])
                m_doc.setNumber(e.animatedFields[0], 1);
            if (e.startingFrameField)
                m_doc.setText(e.startingFrameField, QStringLiteral("1"));
            if (e.stillFrameField)
                m_doc.setText(e.stillFrameField, QStringLiteral("1"));
            if (e.reverseField)
                m_doc.setNumber(e.reverseField, a.reverse ? 1 : 0);
        }
        return true;
    }

    template <typename Row>
    bool stills(const SampleStill (&table)[rowCount<Row>], const RowTable<Row, const char *> &keys)
    {
        for (Row row : rowValues<Row>) {
            const SampleStill &still = table[enumIndex(row)];
            const QImage image = drawImage(still.size, [&](QPainter &p) {
                still.paint(p, still.size, still.variant);
            });
            if (!saveImage(image, QLatin1StringView(still.file)))
                return false;
            m_doc.setText(keys[row], QLatin1StringView(still.file));
        }
        return true;
    }

    bool soundsAndMusic()
    {
        static_assert(std::size(sounds) == std::size(soundRowKeys));
        for (SoundRow row : rowValues<SoundRow>) {
            const SampleSound &sound = sounds[enumIndex(row)];
            if (!saveBytes(waveFile(sound.partials), QLatin1StringView(sound.file)))
                return false;
            m_doc.setText(soundRowKeys[row], QLatin1StringView(sound.file));
        }
        if (!saveBytes(midiFile(), QStringLiteral("theme.mid")))
            return false;
        m_doc.setText(FieldKey::midi, QStringLiteral("theme.mid"));
        return true;
    }

    void colorsAndSwitches()
    {
        static_assert(std::size(colors) == std::size(colorKeys));
        for (ColorRow row : rowValues<ColorRow>)
            m_doc.setText(colorKeys[row], QLatin1StringView(colors[enumIndex(row)]));
        for (const ThemeSection &section : themeSections())
            m_doc.setNumber(section.include, 1);
        const AnimatedElement &blocks = ::animatedElements[AnimatedElementId::Blocks];
        m_doc.setNumber(blocks.animatedFields[1], 1); // specials
        m_doc.setNumber(blocks.animatedFields[2], 1); // internet blocks
        m_doc.setNumber(FieldKey::menuTransparent, 1);
        m_doc.setNumber(FieldKey::winTransparent, 1);
        m_doc.setNumber(::animatedElements[AnimatedElementId::Explosion].transparencyField, 1);
        m_doc.setNumber(::animatedElements[AnimatedElementId::Bomb].transparencyField, 1);
    }

    bool saveImage(const QImage &image, const QString &name)
    {
        const bool jpeg = name.endsWith(u".jpg");
        QByteArray bytes;
        QBuffer buffer(&bytes);
        if (!buffer.open(QIODevice::WriteOnly) || !image.save(&buffer, jpeg ? "JPEG" : "BMP", jpeg ? 88 : -1)) {
            m_error = QStringLiteral("Cannot encode %1").arg(name);
            return false;
        }
        return saveBytes(bytes, name);
    }

    bool saveBytes(const QByteArray &bytes, const QString &name)
    {
        const QString path = m_work.filePath(name);
        if (const Result<void> written = writeWholeFile(path, bytes); !written) {
            m_error = QStringLiteral("Cannot write %1: %2").arg(path, written.errorText());
            return false;
        }
        m_files.append(path);
        return true;
    }

    QDir m_work;
    ThemeDocument &m_doc;
    QStringList m_files;
    QString m_error;
};

QString sampleDescription(const ThemeDocument &doc)
{
    QString text = generateDescription(doc);
    text.replace(QStringLiteral("//!!!!ENTER YOUR DESCRIPTION HERE!!!!"),
                 QStringLiteral("//A sample theme that fills every section: animated backgrounds,\r\n"
                                "//blocks and windows, ten interface screens, eight pictures,\r\n"
                                "//twelve colours, eleven sounds and a MIDI tune."));
    text.chop(2); // the writer ends the description's last line itself
    return text;
}

int fail(const QString &message)
{
    std::fprintf(stderr, "make-sample: %s\n", qPrintable(message));
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() != 2)
        return fail(QStringLiteral("usage: make-sample <output folder>"));

    const QDir out(arguments.at(1));
    if (!QDir().mkpath(out.path()))
        return fail(QStringLiteral("Cannot create %1").arg(out.path()));
    QTemporaryDir work;
    if (!work.isValid())
        return fail(work.errorString());

    ThemeDocument doc;
    doc.resetTheme();
    SampleBuilder builder(work.path(), doc);
    if (!builder.build())
        return fail(builder.error());
    doc.setText(FieldKey::description, sampleDescription(doc));

    const QString zipPath = out.filePath(QStringLiteral("StakkoSample.zip"));
    if (const Result<void> packed = writeResourcePackage(zipPath, builder.files(), work.path()); !packed)
        return fail(packed.errorText());
    const QString themePath = out.filePath(QStringLiteral("StakkoSample.skt"));
    if (const Result<void> written = writeThemeFile(doc, themePath); !written)
        return fail(written.errorText());
    std::printf("Wrote %s and %s (%lld files packed)\n", qPrintable(themePath), qPrintable(zipPath),
                qlonglong(builder.files().size()));
    return 0;
}
