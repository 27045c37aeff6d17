#include "findings/chosen_packs.h"

#include "platform/settings.h"
#include "store/storage_status.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quillon::chosen_packs {

namespace {

class ChosenPacksText
{
    Q_DECLARE_TR_FUNCTIONS(ChosenPacks)
};

const QString key = u"findings/packs"_s;

} // namespace

Chosen now()
{
    Chosen chosen;
    for (const QString &name : names()) {
        Result<RulePack> pack = rule_packs::load(name);
        if (pack)
            chosen.packs.append(*std::move(pack));
        else
            chosen.failures.append(
                ChosenPacksText::tr("The rule pack %1 is left out (%2).").arg(name, pack.error().reason));
    }
    return chosen;
}

QStringList names()
{
    return settings().value(key).toStringList();
}

Result<> choose(const QStringList &names)
{
    return storeSetting(key, names);
}

} // namespace quillon::chosen_packs
