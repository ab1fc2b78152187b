#include "game_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "saved_game.h"
#include "text.h"

namespace ui {

namespace {

using game::GameState;

constexpr qint64 mostRead = 32 << 20;  // bytes; a firm's name may be some millions long

FileError platformError(std::errc code) {
    return {QString::fromLocal8Bit(std::make_error_code(code).message())};
}

/// Reading a pipe can wait forever, and saving over a device would replace it by a file.
void requireRegularFile(const QFileInfo& file) {
    if (file.isDir()) {
        throw platformError(std::errc::is_a_directory);
    }
    if (file.exists() && !file.isFile()) {
        throw FileError{QStringLiteral("Not a regular file")};
    }
}

/// The file that symbolic links lead to, which need not exist. QSaveFile resolves ".." after a
/// linked folder wrongly, and replaces links that form a circle.
QFileInfo behindLinks(const QString& path) {
    std::filesystem::path file = QFileInfo(path).filesystemFilePath();
    std::error_code ignored;
    for (int links = 0; std::filesystem::is_symlink(file, ignored); ++links) {
        if (links == 40) {
            throw platformError(std::errc::too_many_symbolic_link_levels);
        }
        file = file.parent_path() / std::filesystem::read_symlink(file, ignored);
    }
    return QFileInfo(file);
}

/// A write may stop half way, and only the next one gives the reason.
[[nodiscard]] bool writeAll(QIODevice& file, QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes.data(), bytes.size());
        if (written <= 0) {
            return false;
        }
        bytes = bytes.sliced(written);
    }
    return true;
}

std::string decoded(const std::string& bytes) {
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    using Flag = QStringDecoder::Flag;
    QStringDecoder utf8{QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom};
    QString text = utf8(view);
    if (utf8.hasError()) {
        QStringDecoder windows1252{"windows-1252"};
        text = windows1252.isValid() ? windows1252(view) : QString::fromLatin1(view);
    }
    return toRules(text);
}

}  // namespace

GameState readGameFile(const QString& path) {
    requireRegularFile(QFileInfo(path));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        throw FileError{file.errorString()};
    }
    const QByteArray bytes = file.read(std::min(file.size(), mostRead));
    if (file.error() != QFileDevice::NoError) {
        throw FileError{file.errorString()};
    }
    std::optional<GameState> state =
        game::readSavedGame({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    if (!state) {
        throw FileError{QStringLiteral("Not a saved game")};
    }
    for (std::string* text : {&state->gstrFirm, &state->gstrLocation}) {
        *text = decoded(*text);
    }
    return *std::move(state);
}

void writeGameFile(const QString& path, const GameState& state) {
    QStringEncoder encode{QStringEncoder::System};
    const QByteArray bytes = encode(fromRules(game::writeSavedGame(state)));
    if (encode.hasError() || !game::readSavedGame(bytes.toStdString())) {
        throw FileError{QStringLiteral("The name of the firm cannot be saved")};
    }
    const QFileInfo target = behindLinks(path);
    requireRegularFile(target);
    QSaveFile file(target.filePath());
    file.setDirectWriteFallback(true);  // in a folder that takes no new file
    // Unbuffered, since commit() does not notice when flushing a buffer fails.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(file, bytes) ||
        !file.commit()) {
        throw FileError{file.errorString()};
    }
}

}  // namespace ui
