#pragma once

#include <cstdint>
#include <functional>
#include <optional>

namespace zelmo {

// Keys and modifiers by the numbers that shortcuts are described with; a service translates them to its system's own.
inline constexpr std::uint32_t spaceKeyCode = 49;
inline constexpr std::uint32_t commandModifier = 0x0100;
inline constexpr std::uint32_t optionModifier = 0x0800;
inline constexpr std::uint32_t controlModifier = 0x1000;

struct HotKeyCombination {
    std::uint32_t keyCode = 0;
    std::uint32_t modifiers = 0; // a mask

    friend constexpr bool operator==(const HotKeyCombination&, const HotKeyCombination&) = default;
};

// What its registrant calls a hot key; given back with each press of it.
struct HotKeyIdentifier {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;

    friend constexpr bool operator==(const HotKeyIdentifier&, const HotKeyIdentifier&) = default;
};

// A registered hot key; valid until it is unregistered.
enum class HotKeyReference : std::uint32_t {};

// Key combinations that reach the program whichever window has the focus. Implemented once per platform, owned by
// the application's construction code, used on the main thread only.
class HotKeyService {
public:
    using Handler = std::function<void(HotKeyIdentifier)>;

    virtual ~HotKeyService() = default;

    // The handler runs once for each press of a registered hot key, however long it is held, while the system waits
    // for it: what takes time has to wait until it has returned.
    virtual void installHandler(Handler handler) = 0;

    // Nothing when the system refuses, for example because another program has the combination.
    virtual std::optional<HotKeyReference> registerHotKey(HotKeyCombination combination,
                                                          HotKeyIdentifier identifier) = 0;
    virtual void unregisterHotKey(HotKeyReference reference) = 0;
};

} // namespace zelmo
