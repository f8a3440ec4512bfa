#include "ui/widgets/drawing/text_fit.h"

namespace zelvor {

QString FitTextToWidth(const QString& text, const QFontMetrics& metrics, int width) {
    if (width <= 0)
        return {};
    if (metrics.horizontalAdvance(text) <= width)
        return text;
    const QString mark = QString::fromUtf16(kCutMark);
    // The widths of the beginnings grow with their length: the longest one
    // that fits is found by halving, measuring about log2(n) texts.
    qsizetype fits = 0;
    qsizetype tooLong = text.size();
    while (tooLong - fits > 1) {
        const qsizetype middle = fits + (tooLong - fits) / 2;
        if (metrics.horizontalAdvance(text.left(middle) + mark) <= width)
            fits = middle;
        else
            tooLong = middle;
    }
    // Never end on the first half of a surrogate pair.
    if (fits > 0 && text.at(fits - 1).isHighSurrogate())
        --fits;
    return text.left(fits) + mark;
}

} // namespace zelvor
