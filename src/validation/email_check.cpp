#include "platform/regex.h"
#include "validation/universal_converters.h"

using namespace Qt::StringLiterals;

namespace quillon {

namespace {

enum class Fit
{
    Missing,
    TooShort,
    Fits,
    TooLong
};

Fit fitOf(qsizetype length, Bounds bounds)
{
    if (bounds.hold(length))
        return Fit::Fits;
    return length < bounds.min ? Fit::TooShort : Fit::TooLong;
}

/// An address taken apart. The parts are what their patterns find, which is not always the whole of what
/// stands between the signs.
struct Address
{
    qsizetype length = 0;
    qsizetype at = -1;    ///< Place of the first "@".
    qsizetype point = -1; ///< Place of the first "." in what follows the "@".
    qsizetype domainLength = 0;
    qsizetype extensionLength = 0; ///< With its leading point.
    Fit local = Fit::Missing;
    Fit domain = Fit::Missing;
    Fit extension = Fit::Missing;

    [[nodiscard]] bool isAcceptable() const
    {
        return local == Fit::Fits && domain == Fit::Fits && extension == Fit::Fits;
    }
};

qsizetype lengthOfMatch(const Regex &pattern, QStringView text, qsizetype group)
{
    const auto match = pattern.firstMatch(text);
    return match ? match->captured(group).size() : 0;
}

Address takenApart(QStringView text, const EmailBounds &bounds)
{
    static const Regex localPart(u"([a-zA-Z0-9._%+-]+)@");
    // "A-z" lets six signs between the two alphabets pass as well; addresses with a "_" there rely on it.
    static const Regex domainLabel(u"@([a-zA-z0-9-]+)");
    static const Regex extension(u"\\.[a-zA-Z0-9.]+");

    Address address;
    address.length = text.size();
    address.at = text.indexOf(u'@');
    const QStringView tail = text.sliced(address.at + 1);
    address.point = tail.indexOf(u'.');
    address.domainLength = lengthOfMatch(domainLabel, text, 1);
    address.extensionLength = lengthOfMatch(extension, tail, 0);

    const qsizetype localLength = lengthOfMatch(localPart, text, 1);
    if (localLength > 0)
        address.local = fitOf(localLength, bounds.local);
    if (address.domainLength > 0 && address.point >= 0)
        address.domain = fitOf(address.domainLength, bounds.domain);
    if (address.extensionLength > 0 && address.at >= 0)
        address.extension = fitOf(address.extensionLength - 1, bounds.extension);
    return address;
}

void colourLocalPart(const Address &address, Bounds bounds, TextColours &colours)
{
    if (address.local == Fit::TooLong) {
        colours.setAll(Colour::Black);
        colours.set(bounds.max, address.at - bounds.max, Colour::Red);
    } else if (address.local != Fit::Missing) {
        colours.set(0, address.at, address.local == Fit::Fits ? Colour::Black : Colour::Red);
    }
}

void colourDomain(const Address &address, Bounds bounds, TextColours &colours)
{
    const qsizetype start = address.at + 1;
    switch (address.domain) {
    case Fit::Missing:
        if (address.at >= 0)
            colours.set(start, address.domainLength, Colour::Black);
        break;
    case Fit::TooShort:
        colours.set(start, address.domainLength, Colour::Red);
        break;
    case Fit::Fits:
        colours.set(address.at, address.point + 1, Colour::Black);
        break;
    case Fit::TooLong:
        colours.setAll(Colour::Black);
        colours.set(start + bounds.max, address.domainLength - bounds.max, Colour::Red);
        break;
    }
}

void colourExtension(const Address &address, Bounds bounds, TextColours &colours)
{
    const auto colourLast = [&](qsizetype count, Colour colour) {
        colours.set(address.length - count, count, colour);
    };
    const qsizetype length = address.extensionLength;
    switch (address.extension) {
    case Fit::Missing:
        break;
    case Fit::TooShort:
        colourLast(length - 1, Colour::Red);
        break;
    case Fit::Fits:
        colourLast(length - 1, Colour::Black);
        break;
    case Fit::TooLong:
        colours.set(address.length - 1 - length, length, Colour::Black);
        colourLast(length - bounds.max - 1, Colour::Red);
        break;
    }
}

/// Colours @p field, which is not empty, part by part. Without an "@" the whole field is red, edited or not.
void colour(const Address &address, const EmailBounds &bounds, TextControl &field)
{
    if (address.at < 0)
        field.setWholeTextColour(Colour::Red);
    if (!field.isEditing())
        return;
    TextColours colours = field.colours();
    colourLocalPart(address, bounds.local, colours);
    colourDomain(address, bounds.domain, colours);
    colourExtension(address, bounds.extension, colours);
    field.setColours(colours);
}

} // namespace

bool UniversalConverters::isEmailAddress(const EmailBounds &bounds, QStringView address)
{
    return takenApart(address, bounds).isAcceptable();
}

bool UniversalConverters::emailCheck(const EmailBounds &bounds, TextControl &field)
{
    field.setText(field.text().remove(u' '));
    const QString text = field.text();
    if (text.isEmpty())
        return false;
    const Address address = takenApart(text, bounds);
    colour(address, bounds, field);
    if (address.at < 0) {
        field.setHintColour(Colour::Red);
        field.caption().setColour(Colour::Red);
    }
    return address.isAcceptable();
}

bool UniversalConverters::emailFieldLoadValidator(TextControl &field, const EmailBounds &bounds)
{
    const QString text = field.text();
    if (text == u"Email Should Not Be Empty")
        return false;
    const Address address = takenApart(text, bounds);
    colour(address, bounds, field);
    return address.isAcceptable();
}

} // namespace quillon
