#pragma once

#include "hotkey/HotKeyService.h"

#include <QStringList>

namespace zelmo::test {

// Notes what it is asked for, and refuses when told to.
class FakeHotKeyService : public HotKeyService {
public:
    enum class Answer { accept, refuse };

    explicit FakeHotKeyService(QStringList& log) : m_log(log) {}

    void installHandler(Handler handler) override {
        m_log.append(QStringLiteral("install"));
        press = std::move(handler);
    }
    std::optional<HotKeyReference> registerHotKey(HotKeyCombination combination, HotKeyIdentifier identifier) override {
        m_log.append(QStringLiteral("register %1 %2 %3 %4")
                         .arg(combination.keyCode)
                         .arg(combination.modifiers)
                         .arg(identifier.signature, 0, 16)
                         .arg(identifier.id));
        if (answer == Answer::refuse)
            return std::nullopt;
        return HotKeyReference{++m_last};
    }
    void unregisterHotKey(HotKeyReference reference) override {
        m_log.append(QStringLiteral("unregister %1").arg(static_cast<std::uint32_t>(reference)));
    }

    Answer answer = Answer::accept;
    Handler press;

private:
    QStringList& m_log;
    std::uint32_t m_last = 0;
};

} // namespace zelmo::test
