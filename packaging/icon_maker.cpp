#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

// Draws the program's icon in the sizes that desktops look for, when it is built: SVG FOLDER.
int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    QSvgRenderer drawing(arguments.value(1));
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        QImage icon(size, size, QImage::Format_ARGB32);
        icon.fill(Qt::transparent);
        QPainter painter(&icon);
        drawing.render(&painter);
        painter.end();
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(arguments.value(2)).arg(size);
        if (!drawing.isValid() || !QDir().mkpath(folder) ||
            !icon.save(folder + QStringLiteral("/quillon.png")))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
