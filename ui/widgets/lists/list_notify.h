#pragma once
// How a list control tells its parent window: a WindowMessageEvent posted
// (delivered later by the event loop) or sent (handled at once, its result
// the answer).

#include <QWidget>
#include <cstdint>

namespace zelvor {

// Nothing happens when the list has no parent.
void PostToParent(const QWidget& list, std::uint32_t message, std::uint32_t wParam,
                  std::int32_t lParam);
// The handler's SetResult, 0 when nobody answered or there is no parent.
std::int32_t SendToParent(const QWidget& list, std::uint32_t message, std::uint32_t wParam,
                          std::int32_t lParam);

// A screen point as a window message carries it: x low 16 bits, y high.
std::int32_t PackPoint(int x, int y);

} // namespace zelvor
