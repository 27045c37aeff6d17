#include "platform/unfinished_name.h"

#include <QRandomGenerator>
#include <QString>

#include <algorithm>

namespace quillon::unfinished_name {

namespace {

constexpr QByteArrayView begin = ".quillon-";
constexpr qsizetype numberLength = 16;

bool isHexDigit(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
}

} // namespace

QByteArray make(QByteArrayView end)
{
    // By chance, for in containers and on shared disks several processes have the same number.
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate64(), 16);
    return begin.toByteArray() + number.rightJustified(numberLength, '0') + end.toByteArray();
}

bool is(QByteArrayView name, QByteArrayView end)
{
    return name.size() == begin.size() + numberLength + end.size() && name.startsWith(begin) &&
           name.endsWith(end) && std::ranges::all_of(name.sliced(begin.size(), numberLength), isHexDigit);
}

} // namespace quillon::unfinished_name
