#pragma once

#include <gtest/gtest.h>

#include <array>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "voyage_scene.h"

namespace test {

/// What a story told to its scene, one line an event; dots of a passage stay on one line.
class Transcript {
public:
    void line(std::string_view text) { m_text.append(m_text.empty() ? "" : "\n").append(text); }
    void tail(std::string_view text) { m_text.append(text); }
    [[nodiscard]] std::string take() {
        tail(m_text.empty() ? "" : "\n");
        return std::exchange(m_text, {});
    }

private:
    std::string m_text;
};

inline std::string_view name(game::Order order) {
    constexpr std::array<std::string_view, 9> names{
        "Buy", "Sell", "Leave", "Visit", "Money", "Transfer", "Repair", "Cannon", "Ship"};
    return names.at(static_cast<std::size_t>(order));
}

/// A voyage watched by nobody: it is written down, and questions get the answers laid ready.
class TranscriptScene final : public game::VoyageScene {
public:
    Transcript transcript;
    std::deque<bool> answers;
    game::Milliseconds waited{0};
    std::function<void()> battle = [] {};

    using VoyageScene::appendEntry;
    void appendEntry(std::string_view message, std::string_view continuation) override {
        transcript.line(message);
        if (!continuation.empty()) {
            transcript.line("| " + std::string{continuation});
        }
    }
    void appendText(std::string_view text) override { transcript.tail(text); }
    void flash(game::Alert alert) override {
        transcript.line(alert == game::Alert::News ? "flash cyan" : "flash red");
    }
    void wait(game::Milliseconds duration) override { waited += duration; }
    void setOrderEnabled(game::Order order, bool enabled) override {
        transcript.line((enabled ? "enable " : "disable ") + std::string{name(order)});
    }
    void setAtSea(bool atSea) override { transcript.line(atSea ? "at sea" : "in port"); }
    bool ask(std::string_view text, std::string_view title) override {
        transcript.line("ask [" + std::string{title} + "] " + std::string{text});
        if (answers.empty()) {
            ADD_FAILURE() << "an unexpected question: " << text;
            return false;
        }
        const bool answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void inform(std::string_view text, std::string_view title) override {
        transcript.line("inform [" + std::string{title} + "] " + std::string{text});
    }
    void showBattle() override {
        transcript.line("battle");
        battle();
    }
};

}  // namespace test
