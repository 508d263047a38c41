// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The bare Qt programs the from-outside benchmark sets beside the editor, linked to Qt Widgets
// alone and doing the editor's job the plainest way:
//   bare-window label [WIDTH HEIGHT]         a window with one label, then waits
//   bare-window play FOLDER COUNT PERIOD     decodes FOLDER/bg1.bmp ... bgCOUNT.bmp, then paints
//                                            them one after the other from a QTimer of PERIOD ms

#include <QApplication>
#include <QImage>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <QWidget>

#include <vector>

namespace {

class Player : public QWidget
{
public:
    Player(std::vector<QImage> frames, int period)
        : m_frames(std::move(frames))
    {
        setFixedSize(m_frames.empty() ? QSize(192, 352) : m_frames.front().size());
        m_timer.setTimerType(Qt::PreciseTimer);
        connect(&m_timer, &QTimer::timeout, this, [this] {
            m_shown = (m_shown + 1) % std::max<size_t>(m_frames.size(), 1);
            update();
        });
        m_timer.start(period);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (!m_frames.empty())
            QPainter(this).drawImage(0, 0, m_frames[m_shown]);
    }

private:
    std::vector<QImage> m_frames;
    size_t m_shown = 0;
    QTimer m_timer;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments().mid(1);
    if (args.size() == 4 && args[0] == u"play") {
        std::vector<QImage> frames;
        for (int n = 1; n <= args[2].toInt(); ++n)
            frames.push_back(QImageReader(QStringLiteral("%1/bg%2.bmp").arg(args[1]).arg(n)).read());
        Player player(std::move(frames), args[3].toInt());
        player.move(800, 0); // beside the editor's window, on a server without a window manager
        player.show();
        return app.exec();
    }
    QWidget window;
    window.resize(args.size() == 3 ? QSize(args[1].toInt(), args[2].toInt()) : QSize(500, 430));
    window.move(800, 0);
    new QLabel(QStringLiteral("Stakko Theme Maker"), &window);
    window.show();
    return app.exec();
}
