#include "widgets/lazy_icon.h"

#include <QIconEngine>

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

class LazyIconEngine final : public QIconEngine
{
public:
    explicit LazyIconEngine(QString path) : m_path(std::move(path)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QSize actualSize(const QSize &size, QIcon::Mode, QIcon::State) override
    {
        return size;
    } // It has no own one.
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return icon().pixmap(size, 1, mode, state);
    }
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal) override
    {
        return pixmap(size, mode, state); // The size is in pixels already.
    }
    [[nodiscard]] QIconEngine *clone() const override { return new LazyIconEngine(m_path); }

private:
    QIcon &icon()
    {
        if (m_icon.isNull())
            m_icon = QIcon(m_path);
        return m_icon;
    }

    QString m_path;
    QIcon m_icon;
};

} // namespace

QIcon lazyIcon(const QString &name)
{
    return QIcon(new LazyIconEngine(u":/icons/%1.svg"_s.arg(name)));
}

} // namespace quillon
