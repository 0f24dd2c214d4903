// Linked into every test executable: before anything else runs, moves the process into a temporary folder of its
// own, deep enough for the panel's relative settings path, and onto a screen that needs no display. So no test
// touches a file of whoever starts it, by hand or through ctest. The folder goes with the process; what a crashed
// one leaves there stays to be looked at.

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace {

// A test may start itself anew to gain rights (same process, same folder), and its children inherit the name: the
// folder belongs to the process that made it.
const char kFolderVariable[] = "PANEL_TEST_FOLDER";
const char kOwnerVariable[] = "PANEL_TEST_FOLDER_OWNER";

[[noreturn]] void refuse(const char *what)
{
    std::perror(what);
    std::_Exit(1);
}

std::string variable(const char *name)
{
    const char *text = std::getenv(name);
    return text ? text : "";
}

class OwnFolder
{
public:
    OwnFolder()
    {
        const std::string self = std::to_string(::getpid());
        folder = variable(kFolderVariable);
        if (folder.empty() || variable(kOwnerVariable) != self)
            make(self);
        ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
        ::setenv("QT_QUICK_BACKEND", "software", 0);
    }
    ~OwnFolder()
    {
        std::error_code ignored;
        std::filesystem::current_path("/", ignored);
        std::filesystem::remove_all(folder, ignored);
    }
    OwnFolder(const OwnFolder &) = delete;
    OwnFolder &operator=(const OwnFolder &) = delete;

private:
    void make(const std::string &self)
    {
        const std::string above = variable("TMPDIR");
        folder = (above.empty() ? "/tmp" : above) + "/panel-test.XXXXXX";
        if (!::mkdtemp(folder.data()))
            refuse("no temporary folder for the test");
        const std::string home = folder + "/home";
        const std::string runtime = folder + "/runtime";
        std::error_code error;
        std::filesystem::create_directories(home + "/run", error);
        std::filesystem::create_directory(runtime, error);
        std::filesystem::permissions(runtime, std::filesystem::perms::owner_all, error);
        std::filesystem::current_path(home + "/run", error);
        if (error)
            refuse("no folders in the test's temporary folder");
        ::setenv("HOME", home.c_str(), 1);
        ::setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
        ::setenv(kFolderVariable, folder.c_str(), 1);
        ::setenv(kOwnerVariable, self.c_str(), 1);
    }

    std::string folder;
};

const OwnFolder ownFolder;

} // namespace
