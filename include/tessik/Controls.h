// The controls a host attaches to a search or a listing, and their relatives.
//
// Each control owns a window of its own, made by its constructor and destroyed with it, and
// keeps what it shows: a text, a bar position, the cells of a list, a count of redraws. The
// public fields are the control's settings; assignment copies them in their order (lists
// element by element, as Link does) and never the window, what the control shows nor the
// change callback. Only DMsgBox can be copy-constructed.
//
// An `int const& id` that selects a control takes -1 or the control's own id; any other value
// selects nothing and the call does nothing. A host that draws the controls itself registers a
// change callback, called on the thread that made the change, after it, with no lock held.
#ifndef TESSIK_CONTROLS_H
#define TESSIK_CONTROLS_H

#include <tessik/DName.h>
#include <tessik/Link.h>
#include <tessik/export.h>
#include <tessik/platform.h>

struct ControlState;

// The part of a control that is not a value: its window and what it shows. Assignment leaves
// it alone, so the controls' assignments copy exactly their fields.
class ControlView {
public:
    ControlView() : state(nullptr) {}
    ControlView(ControlView const&) = delete;
    ControlView& operator=(ControlView const&) { return *this; }

    ControlState* state;
};

class TESSIK_API DIBasics {
public:
    typedef void (*ChangeCallback)(void* user, DIBasics const& control);

    Link<DWORD> tags;    // the host's own values; the control only keeps them
    DWORD controlId;     // the id given at construction; -1 is 0xFFFFFFFF
    DWORD style;         // window style the window was made with
    DWORD exStyle;       // extended window style
    COLORREF textColour; // black
    COLORREF backColour; // button face, RGB 240 240 240
    DWORD fontHeight;    // 12
    DWORD fontWidth;     // 0: as the font gives it
    DWORD helpId;        // context help id, 0
    BYTE enabled;        // 1
    DWORD rangeLow;      // value range of a bar or slider, 0 to 0 at first
    DWORD rangeHigh;     // its upper end
    DWORD rangeStep;     // 1

    DIBasics(HWND const& parent = nullptr, int const& id = -1);
    ~DIBasics();
    DIBasics& operator=(DIBasics const& other);

    // The control's window; null for another id, or a parent that is not the control's.
    HWND GetHandle(int const& id, HWND const& parent) const;
    // Paints the control now; true when its window did.
    bool Redraw(int const& id) const;

    // What the control shows.
    DName Text() const;
    unsigned RedrawCount() const;

    void SetChangeCallback(ChangeCallback callback, void* user);

    // The kind of window a control makes: its class and first size.
    enum Kind {
        basicKind,
        buttonKind,
        checkBoxKind,
        comboBoxKind,
        listBoxKind,
        listControlKind,
        menuKind,
        msgBoxKind,
        popupKind,
        progressBarKind,
        sliderKind,
        staticKind,
        statusWndKind,
        systemTrayKind,
        tabControlKind,
        textKind,
        toolTipKind
    };

protected:
    DIBasics(Kind const& kind, HWND const& parent, int const& id);

    bool Selects(int const& id) const;
    HWND Parent() const;
    ControlState* State() const { return view.state; }
    bool ShowText(DName const& text) const;
    void Changed() const; // tells the host of a change to the fields

private:
    ControlView view;
};

class TESSIK_API DText : public DIBasics {
public:
    DText(HWND const& parent = nullptr, int const& id = -1);
    DText& operator=(DText const& other);

    bool Set(DName const& text);
};

class TESSIK_API DStatusWnd : public DIBasics {
public:
    DWORD parts;     // number of parts, 1
    DWORD gripWidth; // width of the size grip in pixels, 0: none

    DStatusWnd(DName const& text = DName(0), int const& id = 1194, HWND const& parent = nullptr);
    DStatusWnd& operator=(DStatusWnd const& other);

    void SetText(DName const& text);
};

// The range is rangeLow to rangeHigh. The position is kept as given, also outside the range:
// how to draw such a position is the host's choice.
class TESSIK_API DProgressBar : public DIBasics {
public:
    DProgressBar(DWORD const& low = 0, DWORD const& high = 0, HWND const& parent = nullptr,
                 int const& id = -1);
    DProgressBar& operator=(DProgressBar const& other);

    void SetPos(DWORD const& position, int const& id) const;
    DWORD GetRange(int const& id) const; // the upper end
    void SetRange(DWORD const& low, DWORD const& high, int const& id);

    DWORD Position() const;
};

// A report-style list. Rows are addressed by number and kept sparse: only rows that hold a
// written cell exist, so a row may be written at any number. Columns run from 0 to
// maxColumns - 1, one for each bit a report style can have.
class TESSIK_API DListControl : public DIBasics {
public:
    static constexpr unsigned int maxColumns = 32;

    BYTE sortAscending;       // 1
    DWORD reportStyle;        // shown columns: 1 name, 2 drive, 4 path, 8 size, 16 attributes,
                              // 32 created, 64 accessed, 128 written; all eight at first
    DWORD sortColumn;         // column number of the sort order, 0: none
    DWORD iconSize;           // 16 pixels
    Link<DWORD> columnWidths; // in pixels, by control column; empty: as wide as the text
    DWORD listExStyle;        // extended list style
    DWORD gridColour;         // light grey

    DListControl(HWND const& parent = nullptr, int const& id = -1);
    DListControl& operator=(DListControl const& other);

    void Reset();       // drops every row, and the icons
    bool CreateIcons(); // makes the icons that SetImage cells show
    DWORD GetReportStyle() const;
    void SetReportStyle(DWORD const& columns);

    // False for a column at or past maxColumns, a null path, or when memory runs out.
    bool SetImage(DName const& text, char const* path, unsigned int const& row,
                  unsigned int const& column);
    bool SetText(DName const& text, unsigned int const& row, unsigned int const& column);
    bool SetInt(DWORD const& value, unsigned int const& row, unsigned int const& column);

    // What the list shows. A cell never written is empty.
    unsigned int RowCount() const;
    bool NextRow(unsigned int const& from, unsigned int* row) const; // first at or after from
    DName CellText(unsigned int const& row, unsigned int const& column) const;
    DName CellImage(unsigned int const& row, unsigned int const& column) const; // a file's path
    bool HasIcons() const;
};

// The controls that add nothing to DIBasics but the kind of their window.
template <DIBasics::Kind kind> class DPlainControl : public DIBasics {
public:
    DPlainControl(HWND const& parent = nullptr, int const& id = -1) : DIBasics(kind, parent, id) {}
    DPlainControl& operator=(DPlainControl const& other) = default;
};

class TESSIK_API DCheckBox : public DPlainControl<DIBasics::checkBoxKind> {
public:
    using DPlainControl::DPlainControl;
    DCheckBox& operator=(DCheckBox const& other);
};
class TESSIK_API DComboBox : public DPlainControl<DIBasics::comboBoxKind> {
public:
    using DPlainControl::DPlainControl;
    DComboBox& operator=(DComboBox const& other);
};
class TESSIK_API DListBox : public DPlainControl<DIBasics::listBoxKind> {
public:
    using DPlainControl::DPlainControl;
    DListBox& operator=(DListBox const& other);
};
class TESSIK_API DSlider : public DPlainControl<DIBasics::sliderKind> {
public:
    using DPlainControl::DPlainControl;
    DSlider& operator=(DSlider const& other);
};
class TESSIK_API DStatic : public DPlainControl<DIBasics::staticKind> {
public:
    using DPlainControl::DPlainControl;
    DStatic& operator=(DStatic const& other);
};

class TESSIK_API DButton : public DIBasics {
public:
    DWORD command; // command id sent on a click, 0

    DButton(HWND const& parent = nullptr, int const& id = -1);
    DButton& operator=(DButton const& other);
};

class TESSIK_API DMenu : public DIBasics {
public:
    DWORD menuFlags; // menu item flags, 0

    DMenu(char const* text = nullptr, HWND const& parent = nullptr); // shows text
    DMenu& operator=(DMenu const& other);
};

class TESSIK_API DPopup : public DIBasics {
public:
    DWORD alignment; // where the popup opens relative to the cursor, 0: its top left corner

    DPopup(HWND const& parent = nullptr, int const& id = -1);
    DPopup& operator=(DPopup const& other);
};

class TESSIK_API DTabControl : public DIBasics {
public:
    DWORD selectedTab; // 0

    DTabControl(HWND const& parent = nullptr, int const& id = -1);
    DTabControl& operator=(DTabControl const& other);
};

class TESSIK_API DToolTip : public DIBasics {
public:
    DWORD delay; // milliseconds before the tip shows, 500

    DToolTip(HWND const& parent = nullptr, int const& id = -1);
    DToolTip& operator=(DToolTip const& other);
};

class TESSIK_API DMsgBox : public DIBasics {
public:
    DName caption;

    DMsgBox(HWND const& parent = nullptr, int const& id = -1);
    DMsgBox(DMsgBox const& other); // a window of its own, under the same parent
    DMsgBox& operator=(DMsgBox const& other);
};

class TESSIK_API DSystemTray : public DIBasics {
public:
    Link<DWORD> menuCommands; // command ids of the tray's menu, top to bottom

    DSystemTray(HWND const& parent = nullptr, HICON const& icon = nullptr,
                DName const& tip = DName(0), unsigned int const& id = 0); // shows tip
    DSystemTray& operator=(DSystemTray const& other);

    HICON Icon() const;
};

#endif
