#include "shell/translations.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

#include <memory>

using namespace Qt::StringLiterals;

namespace quillon::translations {

namespace {

/// Whether @p folder has texts of @p program in @p language, which are shown then.
bool install(const QString &program, const QString &language, const QString &folder)
{
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(program + u'_' + language, folder))
        return false;
    translator->setParent(QCoreApplication::instance());
    return QCoreApplication::installTranslator(translator.release());
}

} // namespace

QString folder()
{
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + u"/" QUILLON_TRANSLATIONS_FOLDER);
}

bool load(const QLocale &locale, const QString &folder)
{
    for (QString language : locale.uiLanguages()) {
        language.replace(u'-', u'_');
        if (install(u"quillon"_s, language, folder)) {
            (void)install(u"qtbase"_s, language, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
            return true;
        }
        if (language == u"en")
            return false;
    }
    return false;
}

} // namespace quillon::translations
