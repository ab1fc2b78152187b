#include "approved.h"
#include "stage.h"

TEST(Dialogs, FollowTheirScripts) {
    std::optional<test::Stage> stage;
    const auto play = [&stage](const std::string& line) {
        if (line.starts_with(">> ")) {
            return stage.value().act(QString::fromStdString(line.substr(3)));
        }
        stage.emplace(QString::fromStdString(line.substr(2)));
        return std::string{};
    };
    test::expectApproved("dialogs.txt", test::played("dialogs.txt", play));
}
