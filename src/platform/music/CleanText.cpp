// SPDX-License-Identifier: MIT
#include "platform/music/CleanText.h"

#include <QList>
#include <QString>
#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace zelvo::music {

namespace {

/// Windows-1252, 0x80 to 0x9F (WHATWG Encoding Standard, index windows-1252); 0: a control character.
constexpr auto kWindows1252 = std::to_array<char16_t>(
    {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
     0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
     0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178});

QString repaired(QString text) {
    const bool isPlain = std::ranges::all_of(text, [](QChar one) { return one < u'\x80'; });
    const bool isBytes = std::ranges::all_of(text, [](QChar one) { return one <= u'\xFF'; });
    if (isPlain || !isBytes)
        return text;
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString read = decoder.decode(text.toLatin1());
    if (!decoder.hasError() && !read.contains(QChar::ReplacementCharacter))
        return read;
    for (QChar& character : text) {
        if (character >= u'\x80' && character <= u'\x9F')
            character = kWindows1252.at(character.unicode() - 0x80U);
    }
    return text;
}

bool isLeftOut(char32_t character) {
    const auto category = QChar::category(character);
    return category == QChar::Other_Control || category == QChar::Other_Surrogate ||
           category == QChar::Other_NotAssigned || QChar::isNonCharacter(character) ||
           (character >= U'\x200E' && character <= U'\x200F') ||
           (character >= U'\x202A' && character <= U'\x202E') ||
           (character >= U'\x2066' && character <= U'\x2069') || character == U'\xFEFF' ||
           character == U'\xFFFD';
}

} // namespace

std::string cleanText(std::u16string_view units, std::size_t maxLength) {
    // A text of megabytes is cut off before any work; blanks may still go away.
    const auto start = units.substr(0, 4 * maxLength);
    const QString line = repaired(QString(
                                      reinterpret_cast<const QChar*>(start.data()),
                                      static_cast<qsizetype>(start.size())))
                             .simplified();
    QList<uint> kept = line.toUcs4();
    kept.removeIf([](uint character) { return isLeftOut(character); });
    kept.resize(std::min(kept.size(), static_cast<qsizetype>(maxLength)));
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(kept.constData()), kept.size())
        .simplified()
        .toStdString();
}

} // namespace zelvo::music
