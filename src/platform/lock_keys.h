#pragma once

#include <cstdint>

class QKeyEvent;

namespace zolt {

/// Whether Num Lock and Caps Lock are on. Where the window system can be asked (X11),
/// it is; elsewhere each key event tells the state before it.
class LockKeys {
public:
    bool num() const { return m_num.on; }
    bool caps() const { return m_caps.on; }

    /// Asks the window system; changes nothing where it can't be asked.
    void ask();
    /// Takes what a press or release of any key tells.
    void follow(const QKeyEvent &event);

private:
    struct Lock {
        /// The bit of a key event's native modifiers, as X and Wayland number them.
        std::uint32_t bit;
        bool on = false;
        bool wasOnAtPress = false;
    };
    static void follow(Lock &lock, const QKeyEvent &event, int key);
    void take(std::uint32_t modifiers);

    Lock m_caps{0x02};
    Lock m_num{0x10};
};

} // namespace zolt
