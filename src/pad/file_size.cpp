#include "pad/file_size.h"

#include "pad/pad_form.h"
#include "platform/regex.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quillon::file_size {

namespace {

/// Without expression templates: every result is a number, none refers to a temporary.
using Integer =
    boost::multiprecision::number<boost::multiprecision::cpp_int_backend<>, boost::multiprecision::et_off>;

/// An exact decimal number: digits / 10^scale, or that with a minus sign.
struct Decimal
{
    Integer digits;
    qsizetype scale = 0;
    bool isNegative = false;
};

Integer powerOfTen(qsizetype exponent)
{
    return boost::multiprecision::pow(Integer(10), unsigned(exponent));
}

Decimal decimalAtStart(QStringView text)
{
    if (text.isEmpty()) // As in every new form, which needs no pattern for that.
        return {};
    // More digits after the point than this cannot change what is shown.
    static const Regex number(
        uR"(^\s*([+-]?)([0-9]{0,101})(?:\.([0-9]{0,200})[0-9]*+)?(?:[eE]([+-]?[0-9]++))?)");
    static constexpr qsizetype maxWholeDigits = 100;
    const auto match = number.firstMatch(text);
    if (!match)
        return {};
    bool isReadable = match->captured(4).isEmpty();
    const qsizetype exponent = isReadable ? 0 : match->captured(4).toInt(&isReadable);
    const qsizetype wholeDigits = match->captured(2).size();
    if (!isReadable || wholeDigits > maxWholeDigits || std::abs(exponent) > maxWholeDigits - wholeDigits)
        return {};
    QString digits = match->captured(2).toString();
    digits += match->captured(3);
    digits += QString(qMax<qsizetype>(exponent - match->captured(3).size(), 0), u'0');
    while (digits.startsWith(u'0')) // A zero in front would make the number octal.
        digits.remove(0, 1);
    return {digits.isEmpty() ? Integer(0) : Integer(digits.toStdString()),
            qMax<qsizetype>(match->captured(3).size() - exponent, 0), match->captured(1) == u"-"};
}

/// @p bytes divided by 1024 @p steps times, with @p decimals digits after the point.
QString scaled(QStringView bytes, unsigned steps, int decimals)
{
    const Decimal value = decimalAtStart(bytes);
    const Integer numerator = value.digits * powerOfTen(decimals);
    const Integer denominator = powerOfTen(value.scale) << (10 * steps);
    Integer quotient;
    Integer remainder;
    boost::multiprecision::divide_qr(numerator, denominator, quotient, remainder);
    const Integer twice = remainder * 2;
    if (twice > denominator || (twice == denominator && quotient % 2 != 0))
        ++quotient;
    const bool isNegative = value.isNegative && quotient != 0;
    QString text = QString::fromStdString(quotient.str());
    if (decimals > 0) {
        text = text.rightJustified(decimals + 1, u'0');
        text.insert(text.size() - decimals, u'.');
    }
    return isNegative ? u'-' + text : text;
}

} // namespace

QString kilobytes(QStringView bytes)
{
    return scaled(bytes, 1, 0) + u" KB"_s;
}

QString megabytes(QStringView bytes)
{
    return scaled(bytes, 2, 1) + u" MB"_s;
}

QString withoutUnit(const QString &label)
{
    return QString(label).remove(u' ').remove(u"KB"_s).remove(u"MB"_s);
}

void show(PadForm &form)
{
    const QString bytes = form.text(FieldId::sizeInBytes).text();
    form.text(FieldId::programSizeKB).setText(kilobytes(bytes));
    form.text(FieldId::programSizeMB).setText(megabytes(bytes));
}

void showInitial(PadForm &form)
{
    form.text(FieldId::programSizeKB).setText(kilobytes({}));
    form.text(FieldId::programSizeMB).setText(megabytes({}));
}

} // namespace quillon::file_size
