#include "submission/web_engine_paste_watch.h"

#include <QFile>
#include <QUuid>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

/// What a static library has as resources is there when it is asked for; outside any namespace.
static void initScripts()
{
    Q_INIT_RESOURCE(quillon_scripts);
}

namespace quillon {

namespace {

const std::array<std::pair<QStringView, PastePlace::Kind>, 3> placeKinds = {{
    {u"text", PastePlace::Kind::Text},
    {u"locked", PastePlace::Kind::Locked},
    {u"none", PastePlace::Kind::None},
}};

} // namespace

const QString &pasteToken()
{
    static const QString token = QUuid::createUuid().toString();
    return token;
}

const QString &pasteWatch()
{
    static const QString script = [] {
        initScripts();
        QFile file(u":/scripts/paste-watch.js"_s);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("%s is not part of the program.", qPrintable(file.fileName()));
        return u"(globalThis.quillonPastes ||= (%1)('%2'))()"_s.arg(
            QString::fromUtf8(file.readAll()).trimmed(), pasteToken());
    }();
    return script;
}

PastePlace pastePlace(const QUrl &origin, const QStringList &words)
{
    const auto kind = std::ranges::find(placeKinds, QStringView(words.value(1)),
                                        &std::pair<QStringView, PastePlace::Kind>::first);
    return {.kind = kind == placeKinds.end() ? PastePlace::Kind::None : kind->second,
            .isMainFrame = words.value(2) == u"true",
            .origin = origin,
            .lastPress = words.value(3).toLongLong()};
}

} // namespace quillon
