#include "support/TempTree.h"

#include <tessik/headless.h>
#include <tessik/tessik.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

std::string const defaultFilter("All Files *.*\0*.*\0Aviation *.avi\0*.avi\0Bitmaps *.bmp\0*.bmp\0"
                                "Wave *.wav\0*.wav\0Word *.doc\0*.doc\0Text Files *.txt\0*.txt\0",
                                117);

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
};

} // namespace

TEST_F(Dialogs, FileDialogGetsWhatTheStateSays) {
    HWND const active = reinterpret_cast<HWND>(0x1230);
    HeadlessSetActiveWindow(active);
    DFileLoad load;
    EXPECT_FALSE(load.BrowseForFile(nullptr)); // nothing queued: cancelled
    OPENFILENAMEA given;
    ASSERT_TRUE(HeadlessLastOpenFile(&given));
    EXPECT_EQ(given.lStructSize, 76u);
    EXPECT_EQ(given.hwndOwner, active);
    EXPECT_NE(given.hInstance, nullptr);
    EXPECT_EQ(std::string(given.lpstrFilter, 117), defaultFilter);
    EXPECT_EQ(given.nFilterIndex, 1u);
    EXPECT_EQ(given.Flags, 0xAA9A11u);
    EXPECT_EQ(std::string(given.lpstrFile, given.nMaxFile), std::string(1256, '\0'));
    EXPECT_EQ(given.nMaxFileTitle, 256u);
    EXPECT_STREQ(given.lpstrTitle, "File Explorer");
    EXPECT_STREQ(given.lpstrDefExt, "BMP");
    EXPECT_STREQ(given.lpstrInitialDir, "");
    EXPECT_EQ(given.lpstrCustomFilter, nullptr);

    std::string const filter("Logs\0*.log\0\0", 12);
    load.browseFilterIndex = 0;
    load.SetBrowseTitle(DName("Pick"));
    tree.MakeDir("d");
    ASSERT_TRUE(load.SetBrowseDir(DName(tree.WinPath("d").c_str())));
    load.SetFlagNonExplorerStyle();
    EXPECT_FALSE(load.BrowseForFile(filter.c_str()));
    ASSERT_TRUE(HeadlessLastOpenFile(&given));
    EXPECT_EQ(std::string(given.lpstrFilter, 12), filter);
    EXPECT_EQ(given.nFilterIndex, 1u);
    EXPECT_EQ(given.Flags, 0xA29A11u);
    EXPECT_EQ(given.lpstrInitialDir, tree.WinPath("d"));
    EXPECT_STREQ(given.lpstrTitle, "Pick");
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
        DWORD index;
        bool confirmed;
        std::string dir;
        std::vector<std::string> names;
    } const cases[] = {
        {true, std::string("C:\\d\\a.txt\0\0", 12), 3, true, "C:\\d", {"a.txt"}},
        {true, std::string("C:\\d\0a\0b\0c\0\0", 12), 2, true, "C:\\d", {"a", "b", "c"}},
        {true, std::string("C:\\a.txt\0\0", 10), 1, true, "C:\\", {"a.txt"}},
        {false, std::string("C:\\d\\a.txt\0", 11), 1, true, "C:\\d", {"a.txt"}},
        {false, std::string("C:\\My Files\\a.txt\0", 18), 1, true, "C:\\My", {"Files\\a.txt"}},
        {false, std::string("C:\\d a  b\0", 10), 1, true, "C:\\d", {"a", "b"}},
        {true, std::string(1257, 'n'), 1, false, "start", {}},     // longer than the buffer
        {true, std::string(2, '\0'), 1, true, tree.WinPath(), {}}, // no name: where it stands
    };
    for (Case const& c : cases) {
        DFileLoad load;
        load.SetBrowseDir(DName("start"));
        load.browseIsDir = true;
        if (!c.explorer)
            load.SetFlagNonExplorerStyle();
        HeadlessQueueOpenFile(c.answer.data(), static_cast<unsigned>(c.answer.size()), c.index);
        EXPECT_EQ(load.BrowseForFile(nullptr), c.confirmed) << c.answer;
        EXPECT_EQ(&load.GetBrowseDir(), c.dir) << c.answer;
        EXPECT_EQ(Names(load), c.names) << c.answer;
        EXPECT_EQ(load.GetBrowseIndex(), c.confirmed ? c.index : 1u);
        EXPECT_EQ(load.browseIsDir, !c.confirmed);
        unsigned const past = load.GetBrowseTotal();
        EXPECT_EQ(&load.GetBrowseFilename(past), &load.GetBrowseDir());
        EXPECT_EQ(&load.GetBrowseFullFilename(past), c.dir);
        if (past) { // no second separator behind a root
            std::string const gap = c.dir.back() == '\\' ? "" : "\\";
            EXPECT_EQ(&load.GetBrowseFullFilename(0), c.dir + gap + c.names[0]);
        }
    }
}

TEST_F(Dialogs, FolderDialog) {
    HWND const owner = reinterpret_cast<HWND>(0x4560);
    HeadlessSetActiveWindow(reinterpret_cast<HWND>(0x7890));
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
        load.SetDBFIncludeFiles();
        load.browseNames.InsertRight(DName("old"));
        HeadlessFailShellAllocator(c.allocatorFails);
        c.answered ? HeadlessQueueFolder(c.display, c.path) : HeadlessQueueFolderCancel();
        EXPECT_EQ(load.BrowseForDir(c.owner), c.answered);
        EXPECT_EQ(Names(load), c.names);
        EXPECT_EQ(load.browseIsDir, c.answered);
        EXPECT_EQ(HeadlessItemListsOut(), 0u);
        BROWSEINFOA given;
        ASSERT_TRUE(HeadlessLastFolder(&given));
        EXPECT_EQ(given.hwndOwner, c.owner ? c.owner : reinterpret_cast<HWND>(0x7890));
        EXPECT_EQ(given.ulFlags, 0x4000u);
        EXPECT_STREQ(given.lpszTitle, "Browse for Directory");
        EXPECT_EQ(given.pidlRoot, nullptr);
        EXPECT_EQ(given.lpfn, nullptr);
    }
}

TEST(BrowseState, FlagSetters) {
    struct Case {
        void (DFileLoad::*setter)();
        DWORD files, dirs;
    } const cases[] = {
        {&DFileLoad::SetFlagMultiSelection, 0xAA9A11, 1},
        {&DFileLoad::SetFlagNoMultiSelection, 0xAA9811, 1},
        {&DFileLoad::SetFlagNoReadOnly, 0xAA9A15, 1},
        {&DFileLoad::SetFlagReadOnly, 0xAA9A10, 1},
        {&DFileLoad::SetFlagNoFileCreation, 0xAA9A11, 1},
        {&DFileLoad::SetFlagFileCreation, 0xAA8A11, 1},
        {&DFileLoad::SetFlagExplorerStyle, 0xAA9A11, 1},
        {&DFileLoad::SetFlagNonExplorerStyle, 0xA29A11, 1},
        {&DFileLoad::SetDBFOnlyDirs, 0xAA9A11, 1},
        {&DFileLoad::SetDBFNoOnlyDirs, 0xAA9A11, 0},
        {&DFileLoad::SetDBFIncludeFiles, 0xAA9A11, 0x4001},
        {&DFileLoad::SetDBFNoIncludeFiles, 0xAA9A11, 1},
        {&DFileLoad::SetDBFEditBox, 0xAA9A11, 0x11},
        {&DFileLoad::SetDBFNoEditBox, 0xAA9A11, 1},
        {&DFileLoad::SetDBFNewDirs, 0xAA9A11, 1},
        {&DFileLoad::SetDBFNoNewDirs, 0xAA9A11, 1},
        {&DFileLoad::SetDBFNewDialogStyle, 0xAA9A11, 1},
        {&DFileLoad::SetDBFNoNewDialogStyle, 0xAA9A11, 1},
    };
    for (Case const& c : cases) {
        DFileLoad load;
        (load.*c.setter)();
        EXPECT_EQ(load.GetBrowseFlags(), c.files);
        EXPECT_EQ(load.browseDirFlags, c.dirs);
    }
    DFileLoad load;
    load.SetDBFEditBox();
    load.SetDBFNoOnlyDirs();
    load.SetDBFOnlyDirs();
    EXPECT_EQ(load.browseDirFlags, 0x11u); // one bit at a time
}
