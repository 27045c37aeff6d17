#include "submission/web_engine_paste_watch.h"

#include "submission/web_engine_scripts.h"

#include <QUuid>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

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
    static const QString script =
        u"(globalThis.quillonPastes ||= (%1)('%2'))()"_s.arg(ownScript(u"paste-watch.js"_s), pasteToken());
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
