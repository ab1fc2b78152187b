#include "approved.h"
#include "stage.h"

TEST(Dialogs, FollowTheirScripts) {
    std::optional<test::Stage> stage;
    const auto play = [&stage](const std::string& line) {
        if (line.starts_with(">> ")) {
            return stage ? stage->act(QString::fromStdString(line.substr(3))) : std::string{};
        }
        stage.emplace(QString::fromStdString(line.substr(2)));
        return std::string{};
    };
    const std::string found = test::played("dialogs.txt", play);
    stage.reset();  // fails if draws are left over
    test::expectApproved("dialogs.txt", found);
}
