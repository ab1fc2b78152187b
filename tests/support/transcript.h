#pragma once

#include <gtest/gtest.h>

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
    void line(std::string_view text) {
        if (!m_text.empty() && m_text.back() != '\n') {
            m_text += '\n';
        }
        m_text.append(text).append("\n");
    }
    void tail(std::string_view text) {
        if (!m_text.empty() && m_text.back() == '\n') {
            m_text.pop_back();
        }
        m_text.append(text);
    }
    [[nodiscard]] std::string take() {
        if (!m_text.empty() && m_text.back() != '\n') {
            m_text += '\n';
        }
        return std::exchange(m_text, {});
    }

private:
    std::string m_text;
};

inline std::string_view name(game::Order order) {
    using game::Order;
    switch (order) {
        case Order::Buy:
            return "Buy";
        case Order::Sell:
            return "Sell";
        case Order::Leave:
            return "Leave";
        case Order::Visit:
            return "Visit";
        case Order::Money:
            return "Money";
        case Order::Transfer:
            return "Transfer";
        case Order::Repair:
            return "Repair";
        case Order::Cannon:
            return "Cannon";
        case Order::Ship:
            return "Ship";
    }
    return "?";
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
