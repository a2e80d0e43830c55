#pragma once

#include <QPointer>
#include <QWidget>
#include <algorithm>
#include <cstdint>
#include <limits>

namespace zolt {

namespace detail {
template <class Window> QPointer<Window> &instance() {
    static QPointer<Window> window;
    return window;
}
inline constexpr char kClosed[] = "closed";
} // namespace detail

/// A window that has closed is no longer the one of its class, though it is deleted
/// only when the event loop comes round.
inline void markClosed(QWidget &window) {
    window.setProperty(detail::kClosed, true);
}

/// Each window exists at most once. The one of this class, or null while it isn't loaded.
template <class Window> Window *loaded() {
    Window *window = detail::instance<Window>().data();
    return window && !window->property(detail::kClosed).toBool() ? window : nullptr;
}

/// The window of this class, made by its first use. `owner` is what it stands before.
template <class Window> Window &load(QWidget *owner = nullptr) {
    QPointer<Window> &window = detail::instance<Window>();
    if (!loaded<Window>()) {
        window = new Window(owner);
        window->setObjectName(Window::staticMetaObject.className() + qstrlen("zolt::"));
        window->setAttribute(Qt::WA_DeleteOnClose);
    }
    return *window;
}

/// Closes and forgets the window of this class, if there is one.
template <class Window> void unload() {
    if (Window *window = loaded<Window>()) {
        window->close();
        detail::instance<Window>().clear();
    }
}

/// Lengths are given in twips where a setting or a window's form says so; the
/// screen has 15 to the pixel.
constexpr int kTwipsPerPixel = 15;
constexpr int pixels(int twips) {
    return twips / kTwipsPerPixel;
}

/// A length in pixels as a setting holds it, in twips; far places give the farthest
/// that it can hold.
constexpr std::int16_t twipsSetting(int pixels) {
    constexpr int farthest = std::numeric_limits<std::int16_t>::max() / kTwipsPerPixel;
    return static_cast<std::int16_t>(std::clamp(pixels, -farthest, farthest) * kTwipsPerPixel);
}

} // namespace zolt
