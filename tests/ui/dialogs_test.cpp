#include "approved.h"
#include "stage.h"

TEST(Dialogs, FollowTheirScripts) {
    std::optional<test::Stage> stage;
    test::expectScripts("dialogs.txt", [&stage](const std::string& line) {
        SCOPED_TRACE(line);
        try {
            if (stage && line.starts_with(">> ")) {
                return stage->act(QString::fromStdString(line.substr(3)));
            }
            stage.emplace(QString::fromStdString(line.substr(2)));
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        return std::string{};
    });
}
