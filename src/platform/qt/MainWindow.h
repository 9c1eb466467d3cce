// SPDX-License-Identifier: MIT
//
// MainWindow: the program's form on a Qt desktop.
//
// It shows what the Form says: before each wait for messages it looks what has changed there and
// changes the widgets likewise; the widgets hold no settings of their own. What the user does is
// noted in the handlers of the toolkit and handed to the program, one event by one, on its own
// stack, when the toolkit has returned.
#pragma once

#include <QList>
#include <QMainWindow>
#include <QTimer>
#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/DisplayModes.h"
#include "platform/Form.h"
#include "platform/Request.h"
#include "platform/WaitingEvents.h"
#include "platform/Window.h"
#include "platform/qt/SystemEvents.h"
#include "platform/qt/WindowSight.h"
#include "platform/qt/WindowSize.h"

class QAction;
class QMenu;
class QScrollBar;

namespace scenara {

class MenuBar;
class PictureWidget;
class StageListPanel;
class StatusLine;

class MainWindow : public QMainWindow, public Window {
public:
    // `form` outlives it.
    explicit MainWindow(const Form& form);
    ~MainWindow() override;

    // Who hears of events from now on. The form's menus have their captions and places by then.
    void SetEvents(FormEvents* events);
    // A key has gone down somewhere in the program.
    void NoteKey(VirtualKey key);
    [[nodiscard]] PictureWidget& Picture() { return *picture_; }
    // The wheel over it zooms and moves the camera, the middle button pulls it, and a double click
    // goes to the full screen and back.
    void ObserveHand(PictureWidget& picture);
    // Of the menus, those that keys choose in a window that takes this one's place.
    [[nodiscard]] QList<QAction*> ItemsWithKeys() const;
    // Shows a frame of the stage, with the selection that belongs to it.
    HRESULT Present(const CanvasSize& size, std::span<const std::uint32_t> pixels);

    // Where it stands, in the display's own pixels.
    [[nodiscard]] ScreenRectangle Rectangle() const;

    // Lets the program sleep until something happens, or it wants to be asked again; for when no
    // stage is shown.
    void WaitForEvents();
    // What the program does between events. For whoever lets messages through without handing
    // events over, since the program stands still: a dialog that is open.
    void Idle();
    // For the same: the controls are laid out for a size that has come.
    void FollowSize();
    // With additions all of the menus has room.
    [[nodiscard]] QSize minimumSizeHint() const override;
    // It is hidden, or stands as the window system has placed it.
    [[nodiscard]] bool HasComeUp() const;

    // From any thread: it stops sleeping and asks the program (Form_Idle).
    static void Wake();

    // The program is to end, as if the window had been closed.
    void NoteUnload();

    // A later start of the program has handed this over: it is opened after what is open now, and
    // the program comes to the front. Several that wait are opened as one, the last one's paths
    // first.
    void TakeRequest(Request request);

    // A window with this picture stands in its place: until there is none nothing shows it.
    void CoverBy(PictureWidget* picture);
    // What the user looks at, and what boxes belong to: this one, or the one that stands in its
    // place.
    [[nodiscard]] QWidget* Front();
    [[nodiscard]] bool IsCovered() const { return covering_ != nullptr; }
    // What stands in its place, if anything does, does not cover the screen for now: for a box that
    // would have no keyboard over it.
    void MakeWay();
    // A box is closed: what stands in the place of this window is what the user looks at again, and
    // covers the screen as before.
    void GiveFocusBack();
    // After it was hidden; a window manager may have placed it anew.
    void PutBack(const QPoint& place) { size_.AskForPlace(place); }
    // Foreground tells of this one until a window of ours really has the focus: a window manager
    // that is busy gives it late. 0: of none.
    void AwaitFocus(WindowHandle window) { awaited_ = window; }

    void Show() override;
    void ComeUpAt(const WindowStand& stand) override;
    [[nodiscard]] WindowStand Stand() const override;
    void Size(Long width, Long height) override;
    [[nodiscard]] bool HasRoomFor(Long width, Long height) const override;
    void MoveTo(Long left, Long top) override;
    void SetCaption(const std::string& caption) override;
    [[nodiscard]] bool MessageWaiting() override;
    void DoEvents() override;
    void NoteEvents() override;
    void SleepUntilMessage(std::int64_t nanoseconds) override;
    [[nodiscard]] bool IsSeen() const override { return sight_.IsSeen(); }
    [[nodiscard]] bool LeavingWaits() const override {
        return endRequested_ || waiting_.LeavingWaits();
    }
    void ShowPicture(Long width, Long height, std::span<const std::uint32_t> pixels) override;
    [[nodiscard]] InnerSize BoxOnScreen() const override;
    void FillBox(const InnerSize& box, std::span<const std::uint32_t> pixels,
                 const std::string& text) override;
    [[nodiscard]] WindowPlace Place() const override;
    [[nodiscard]] WindowPlace Screen() const override;
    [[nodiscard]] InnerSize WorkArea() const override;
    [[nodiscard]] InnerSize Around() const override { return {0, HeightAround()}; }
    [[nodiscard]] InnerSize RoomFor(const CanvasSize& size) const override;
    [[nodiscard]] InnerSize LargestInnerSize() const override;
    // As Foreground tells it: of several bases the widget's address counts.
    [[nodiscard]] WindowHandle Handle() const override {
        return reinterpret_cast<WindowHandle>(static_cast<const QWidget*>(this));
    }
    [[nodiscard]] WindowHandle PictureHandle() const override {
        return reinterpret_cast<WindowHandle>(picture_);
    }
    [[nodiscard]] WindowHandle Foreground() const override;
    [[nodiscard]] bool EndRequested() const override { return endRequested_; }
    void RequestEnd() override {
        endRequested_ = true;
        size_.End();
    }

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* receiver, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void BuildMenus();
    void BuildList();
    void BuildBars();
    void BuildMouse();
    void ShowForm();
    bool ReportSize();
    void ShowMenus();
    void KeepMenusWhole();
    [[nodiscard]] int LeastWidth() const;
    void ShowKeys(std::size_t item);
    void ShowPresentation();
    void ShowRecentFiles();
    void ShowBars();
    void ShowStatus();
    void ShowBar(QScrollBar& widget, const ScrollBar& bar) const;
    [[nodiscard]] int HeightAround() const;
    void NoteSelection(int row) {
        waiting_.Add([row](FormEvents& events) { events.lstStages_Click(row); },
                     WaitingEvents::Kind::Leaving);
    }
    void NoteFile(const std::string& file, void (FormEvents::*what)(const std::string&));
    void NoteOpening(const std::string& file);
    void GiveKeysToPicture() const;
    void HandOver();
    [[nodiscard]] bool SizeIsToBeReported() const;
    [[nodiscard]] bool HasToDeliver() const;

    const Form& form_;
    FormEvents* events_ = nullptr;
    MenuBar* menus_ = nullptr;          // the window's own, as Qt has it
    QWidget* inner_ = nullptr;          // holds the picture and the list; a child, as Qt has it
    PictureWidget* picture_ = nullptr;  // a child, as Qt has it
    StageListPanel* list_ = nullptr;    // another
    QScrollBar* cameraBar_ = nullptr;   // below the picture and the list
    QScrollBar* spriteBar_ = nullptr;
    StatusLine* statusLine_ = nullptr;  // below these
    QTimer wake_;
    std::array<QAction*, kMenuCount> actions_{};
    std::array<std::vector<std::string>, kMenuCount> shortcuts_;  // as the actions have them
    std::array<std::string, kMenuCount> tips_;                    // the same
    std::vector<QAction*> recentActions_;
    WaitingEvents waiting_;
    std::vector<std::string> requested_;  // the paths of the later starts that wait
    mutable WindowSize size_;             // it looks at the window when it is asked
    bool wasShown_ = false;
    bool hasStand_ = false;  // it comes up where the user had it
    WindowSight sight_;
    SystemEvents systemEvents_;
    bool sizeCame_ = false;  // of the inner area; it has not been reported yet
    PictureWidget* covering_ = nullptr;
    WindowHandle awaited_ = 0;
    bool tookEventsIn_ = false;  // since messages were let through
    bool asksAgain_ = false;     // the program wants to be asked again though nothing happens
    bool endRequested_ = false;
    bool showsTitle_ = false;
    int heldWidth_ = 0;      // the user makes it no narrower
    std::string titleNote_;  // as it is shown
};

}  // namespace scenara
