#pragma once

#include "actions/duplicates_folder.h"
#include "testing/other_file_system.h"
#include "testing/private_home.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <string>

namespace sonavo {

namespace fs = std::filesystem;

/// Contents by path; of a link, what it says.
using Files = std::map<std::string, std::string>;

inline bool isAnythingAt(const fs::path &path)
{
    return fs::exists(fs::symlink_status(path));
}

/// Empty where nothing can be read.
inline std::string contentOf(const fs::path &file)
{
    if (fs::is_symlink(file))
        return "-> " + fs::read_symlink(file).string();
    std::ostringstream content;
    content << std::ifstream(file).rdbuf();
    return content.str();
}

/// All files in a folder and below, but no list of moved files.
inline Files filesIn(const fs::path &folder)
{
    Files files;
    std::error_code missing;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(folder, missing)) {
        const bool isList = entry.path().filename().string().starts_with("Moved files");
        if (!isList && (entry.is_symlink() || !entry.is_directory()))
            files[entry.path().lexically_relative(folder)] = contentOf(entry.path());
    }
    return files;
}

inline QString toQString(const fs::path &path)
{
    return QString::fromStdString(path.string());
}

/// Files in a home folder of their own and on other file systems.
class ActionTest : public testing::Test
{
protected:
    static DuplicatesFolder folderIn(const fs::path &parent)
    {
        const QDateTime now(QDate(2024, 3, 5), QTime(14, 7, 9));
        return std::get<DuplicatesFolder>(DuplicatesFolder::create(toQString(parent), now));
    }
    static bool moves(DuplicatesFolder &folder, const fs::path &file)
    {
        return std::holds_alternative<MovedFile>(folder.moveHere(toQString(file)));
    }

    const PrivateHome home;
    const OtherFileSystem other{};
    PrivateMounts mounts;
    const fs::path trash = home.path(".local/share/Trash");
};

} // namespace sonavo
