#include "comparison.h"

#include <cstdlib>

namespace {

bool differs(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) > tolerance || std::abs(qGreen(a) - qGreen(b)) > tolerance
        || std::abs(qBlue(a) - qBlue(b)) > tolerance;
}

} // namespace

Comparison compare(const QImage &expected, const QImage &found, int tolerance)
{
    const QImage first = expected.convertToFormat(QImage::Format_RGB32);
    const QImage second = found.convertToFormat(QImage::Format_RGB32);
    Comparison result;
    if (first.size() != second.size()) {
        result.dots = first.width() * first.height();
        result.where = first.rect();
        result.difference = first;
        return result;
    }
    if (first == second)
        return result;
    QImage difference(first.size(), QImage::Format_RGB32);
    for (int y = 0; y < first.height(); ++y) {
        const auto *a = reinterpret_cast<const QRgb *>(first.constScanLine(y));
        const auto *b = reinterpret_cast<const QRgb *>(second.constScanLine(y));
        auto *out = reinterpret_cast<QRgb *>(difference.scanLine(y));
        for (int x = 0; x < first.width(); ++x) {
            const bool other = differs(a[x], b[x], tolerance);
            result.dots += other ? 1 : 0;
            if (other)
                result.where |= QRect(x, y, 1, 1);
            out[x] = other ? qRgb(255, 0, 0) : qRgb(qRed(a[x]) / 3, qGreen(a[x]) / 3, qBlue(a[x]) / 3);
        }
    }
    if (result.dots > 0)
        result.difference = difference;
    return result;
}
