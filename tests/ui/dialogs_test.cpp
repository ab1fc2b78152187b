#include "approved.h"
#include "stage.h"

/// What players do in the windows, and what changes on the screen.
TEST(Windows, DoAsApproved) {
    std::optional<test::Stage> stage;
    test::expectScripts("dialogs.txt", [&stage](const std::string& line) {
        if (line.starts_with(">> ")) {
            return stage->act(QString::fromStdString(line.substr(3)));
        }
        stage.emplace(QString::fromStdString(line.substr(2)));
        return std::string{};
    });
}
