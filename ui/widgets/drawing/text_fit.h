#pragma once
// The one routine that shortens a text to a width: every list and screen that
// cuts a text uses it, so all cut texts look alike.

#include <QFontMetrics>
#include <QString>

namespace zelvor {

// Three full stops, not the single ellipsis character: the program's texts
// end that way on every font.
inline constexpr char16_t kCutMark[] = u"...";

// The text as it is when it fits in `width` pixels measured with `metrics`;
// otherwise its longest beginning that, followed by "...", fits; "..." alone
// when not even one character does; empty when the width is not positive.
QString FitTextToWidth(const QString& text, const QFontMetrics& metrics, int width);

} // namespace zelvor
