#include "platform/lock_keys.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLibrary>
#include <optional>

namespace zolt {

namespace {

/// The modifiers that are on in the X server, locked ones among them: XQueryPointer
/// reports them beside the pointer's place. Qt holds the display, and its plugin the
/// library, so that the program needn't link it.
std::optional<std::uint32_t> modifiersOfX() {
    using XDefaultRootWindow = unsigned long (*)(void *display);
    using XQueryPointer =
        int (*)(void *display, unsigned long window, unsigned long *root, unsigned long *child, int *rootX,
                int *rootY, int *x, int *y, unsigned *mask);
#if QT_CONFIG(xcb)
    const auto *x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    void *display = x11 ? static_cast<void *>(x11->display()) : nullptr;
    if (!display)
        return std::nullopt;
    static QLibrary library(QStringLiteral("X11"), 6);
    static const auto rootOf = reinterpret_cast<XDefaultRootWindow>(library.resolve("XDefaultRootWindow"));
    static const auto query = reinterpret_cast<XQueryPointer>(library.resolve("XQueryPointer"));
    if (!rootOf || !query)
        return std::nullopt;
    unsigned long window = 0;
    int place = 0;
    unsigned mask = 0;
    query(display, rootOf(display), &window, &window, &place, &place, &place, &place, &mask);
    return mask;
#else
    return std::nullopt;
#endif
}

} // namespace

void LockKeys::take(std::uint32_t modifiers) {
    for (Lock *lock : {&m_caps, &m_num})
        lock->on = modifiers & lock->bit;
}

void LockKeys::ask() {
    if (const auto modifiers = modifiersOfX())
        take(*modifiers);
}

void LockKeys::follow(const QKeyEvent &event) {
    const bool locks = event.key() == Qt::Key_CapsLock || event.key() == Qt::Key_NumLock;
    if (const auto modifiers = locks ? modifiersOfX() : std::nullopt)
        return take(*modifiers);
    follow(m_caps, event, Qt::Key_CapsLock);
    follow(m_num, event, Qt::Key_NumLock);
}

void LockKeys::follow(Lock &lock, const QKeyEvent &event, int key) {
    const bool before = event.nativeModifiers() & lock.bit;
    if (event.key() != key) {
        lock.on = before;
    } else if (event.type() == QEvent::KeyPress) {
        // The press turns it on; if it was on, the release turns it off.
        if (!event.isAutoRepeat())
            lock.wasOnAtPress = before;
        lock.on = true;
    } else {
        lock.on = !lock.wasOnAtPress;
    }
}

} // namespace zolt
