#include "support/TempTree.h"

#include <tessik/headless.h>
#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

std::vector<std::string> Names(DFileLoad const& load) {
    std::vector<std::string> names;
    for (unsigned i = 0; i < load.GetBrowseTotal(); ++i)
        names.push_back(&load.GetBrowseFilename(i));
    return names;
}

struct Dialogs : ::testing::Test {
    Dialogs() {
        HeadlessClearDialogs();
        EXPECT_EQ(chdir(tree.Root().c_str()), 0);
    }
    ~Dialogs() override {
        HeadlessClearDialogs();
        HeadlessSetActiveWindow(nullptr);
        HeadlessFailShellAllocator(false);
    }
    TempTree tree; // the file dialog moves the current directory; this puts it back
    OPENFILENAMEA given;
};

} // namespace

TEST_F(Dialogs, FileDialogGetsWhatTheStateSays) {
    HeadlessSetActiveWindow(reinterpret_cast<HWND>(0x1230));
    DFileLoad load;
    EXPECT_FALSE(load.BrowseForFile(nullptr)); // nothing queued: cancelled
    ASSERT_TRUE(HeadlessLastOpenFile(&given));
    EXPECT_EQ(given.lStructSize, 76u);
    EXPECT_EQ(given.hwndOwner, reinterpret_cast<HWND>(0x1230));
    EXPECT_EQ(std::string(given.lpstrFilter, 117),
              std::string("All Files *.*\0*.*\0Aviation *.avi\0*.avi\0Bitmaps *.bmp\0*.bmp\0Wave "
                          "*.wav\0*.wav\0Word *.doc\0*.doc\0Text Files *.txt\0*.txt\0",
                          117));
    EXPECT_EQ(given.Flags + given.nFilterIndex + given.nMaxFileTitle, 0xAA9A11u + 1 + 256);
    EXPECT_EQ(std::string(given.lpstrFile, given.nMaxFile), std::string(1256, '\0'));
    EXPECT_EQ(given.lpstrTitle + std::string("|") + given.lpstrDefExt, "File Explorer|BMP");

    std::string const filter("Logs\0*.log\0\0", 12);
    load.browseFilterIndex = 0;
    load.SetBrowseTitle(DName("Pick"));
    tree.MakeDir("d");
    ASSERT_TRUE(load.SetBrowseDir(DName(tree.WinPath("d").c_str())));
    EXPECT_FALSE(load.BrowseForFile(filter.c_str()));
    ASSERT_TRUE(HeadlessLastOpenFile(&given));
    EXPECT_EQ(std::string(given.lpstrFilter, 12), filter);
    EXPECT_EQ(given.nFilterIndex, 1u);
    EXPECT_EQ(given.lpstrInitialDir + std::string("|") + given.lpstrTitle,
              tree.WinPath("d") + "|Pick");
    EXPECT_EQ(std::string(&load.GetBrowseFilter(), 12), filter); // kept for later calls
    EXPECT_TRUE(std::filesystem::equivalent(std::filesystem::current_path(), tree.Path("d")));

    // No double zero within 65,534 bytes: exactly that many are kept, and the dialog still
    // gets a closed filter.
    std::string const endless(70000, 'x');
    ASSERT_TRUE(load.SetBrowseFilter(endless.c_str()));
    EXPECT_EQ(load.GetBrowseFilter().Size(), 65534u);
    EXPECT_FALSE(load.BrowseForFile(nullptr));
    ASSERT_TRUE(HeadlessLastOpenFile(&given));
    EXPECT_EQ(std::string(given.lpstrFilter), endless.substr(0, 65534));
    EXPECT_FALSE(load.SetBrowseFilter(nullptr));
}

TEST_F(Dialogs, AnswersSplitIntoDirectoryAndNames) {
    struct Case {
        bool explorer;
        std::string answer; // with its closing zeros
        bool confirmed;
        std::string dir;
        std::vector<std::string> names;
    } const cases[] = {
        {true, std::string("C:\\d\\a.txt\0\0", 12), true, "C:\\d", {"a.txt"}},
        {true, std::string("C:\\d\0a\0b\0c\0\0", 12), true, "C:\\d", {"a", "b", "c"}},
        {true, std::string("C:\\a.txt\0\0", 10), true, "C:\\", {"a.txt"}},
        {false, std::string("C:\\d\\a.txt\0", 11), true, "C:\\d", {"a.txt"}},
        {false, std::string("C:\\My Files\\a.txt\0", 18), true, "C:\\My", {"Files\\a.txt"}},
        {false, std::string("C:\\d a  b\0", 10), true, "C:\\d", {"a", "b"}},
        {true, std::string(1257, 'n'), false, "start", {}},     // longer than the buffer
        {true, std::string(2, '\0'), true, tree.WinPath(), {}}, // no name: where it stands
    };
    for (Case const& c : cases) {
        DFileLoad load;
        load.SetBrowseDir(DName("start"));
        load.browseIsDir = true;
        if (!c.explorer)
            load.SetFlagNonExplorerStyle();
        HeadlessQueueOpenFile(c.answer.data(), static_cast<unsigned>(c.answer.size()), 4);
        EXPECT_EQ(load.BrowseForFile(nullptr), c.confirmed) << c.answer;
        EXPECT_EQ(&load.GetBrowseDir(), c.dir) << c.answer;
        EXPECT_EQ(Names(load), c.names) << c.answer;
        EXPECT_EQ(load.GetBrowseIndex(), c.confirmed ? 4u : 1u);
        EXPECT_EQ(load.browseIsDir, !c.confirmed);
        unsigned const past = load.GetBrowseTotal();
        EXPECT_EQ(&load.GetBrowseFilename(past), &load.GetBrowseDir());
        EXPECT_EQ(&load.GetBrowseFullFilename(past), c.dir);
        std::string const gap = c.dir.back() == '\\' ? "" : "\\"; // none behind a root
        EXPECT_EQ(&load.GetBrowseFullFilename(0), past ? c.dir + gap + c.names[0] : c.dir);
    }
}

TEST_F(Dialogs, FolderDialog) {
    HWND const owner = reinterpret_cast<HWND>(0x4560), active = reinterpret_cast<HWND>(0x7890);
    HeadlessSetActiveWindow(active);
    struct Case {
        bool answered, allocatorFails;
        char const *display, *path;
        HWND owner;
        std::vector<std::string> names;
    } const cases[] = {
        {true, false, "d", "Z:\\tmp\\d", owner, {"Z:\\tmp\\d"}},
        {true, true, "d", "Z:\\tmp\\d", nullptr, {"Z:\\tmp\\d"}},
        {true, false, "Control Panel", nullptr, owner, {"Control Panel"}}, // no path: unnoticed
        {false, false, "", "", owner, {}},
    };
    for (Case const& c : cases) {
        DFileLoad load;
        load.SetDBFNoOnlyDirs();
        load.browseNames.InsertRight(DName("old"));
        HeadlessFailShellAllocator(c.allocatorFails);
        c.answered ? HeadlessQueueFolder(c.display, c.path) : HeadlessQueueFolderCancel();
        EXPECT_EQ(load.BrowseForDir(c.owner), c.answered);
        EXPECT_EQ(Names(load), c.names);
        EXPECT_EQ(load.browseIsDir, c.answered);
        EXPECT_EQ(HeadlessItemListsOut(), 0u);
        BROWSEINFOA folder;
        ASSERT_TRUE(HeadlessLastFolder(&folder));
        EXPECT_EQ(folder.hwndOwner, c.owner ? c.owner : active);
        EXPECT_EQ(folder.ulFlags, 0u);
        EXPECT_STREQ(folder.lpszTitle, "Browse for Directory");
    }
}

// Each setter moves its own bit, seen in the words after each group.
TEST(BrowseState, FlagSetters) {
    DFileLoad load;
    using Setter = void (DFileLoad::*)();
    using D = DFileLoad;
    for (Setter set : {&D::SetFlagNoMultiSelection, &D::SetFlagNoReadOnly, &D::SetFlagReadOnly,
                       &D::SetFlagFileCreation, &D::SetFlagNonExplorerStyle, &D::SetDBFNoOnlyDirs,
                       &D::SetDBFIncludeFiles, &D::SetDBFEditBox, &D::SetDBFNewDirs,
                       &D::SetDBFNoNewDirs, &D::SetDBFNewDialogStyle, &D::SetDBFNoNewDialogStyle})
        (load.*set)();
    EXPECT_EQ(load.GetBrowseFlags() + load.browseDirFlags, 0xA28814u + 0x4010);
    for (Setter set :
         {&D::SetFlagMultiSelection, &D::SetFlagNoFileCreation, &D::SetFlagExplorerStyle,
          &D::SetDBFOnlyDirs, &D::SetDBFNoIncludeFiles, &D::SetDBFNoEditBox})
        (load.*set)();
    EXPECT_EQ(load.GetBrowseFlags() + load.browseDirFlags, 0xAA9A14u + 1);
}
