// SPDX-License-Identifier: MIT
#include "platform/qt/MainWindow.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDragEnterEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QUrl>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/ScreenPixels.h"
#include "platform/WindowOnScreens.h"
#include "platform/qt/Display.h"
#include "platform/qt/Launch.h"
#include "platform/qt/MenuBar.h"
#include "platform/qt/PictureWidget.h"
#include "platform/qt/ShownText.h"
#include "platform/qt/StageListPanel.h"
#include "platform/qt/StatusLine.h"
#include "platform/qt/TitlePicture.h"

namespace scenara {
namespace {

// Milliseconds until the program is asked again that wants to be.
constexpr int kAskProgramAgain = 250;

// As a menu shows it sign by sign: no access letter, and no tab, after which the shortcut stands.
QString Literal(const std::string& text) {
    QString shown = Shown(text);
    for (QChar& sign : shown) {
        if (sign < u' ') {
            sign = u' ';
        }
    }
    return shown.replace('&', "&&");
}

// Those that lie elsewhere are left out. A name is bytes, and perhaps no text.
std::vector<std::string> LocalFiles(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) {
            const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
            paths.push_back(QByteArray::fromPercentEncoding(encoded).toStdString());
        }
    }
    return paths;
}

Long Units(int pixels) {
    return pixels * kUnitsPerPixel;
}

// The sprites' bar, to the right for the next one. (The toolkit's own takes Left for more.)
class SpriteBar : public QScrollBar {
public:
    SpriteBar() : QScrollBar(Qt::Horizontal) { setFocusPolicy(Qt::StrongFocus); }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
            case Qt::Key_Left: triggerAction(SliderSingleStepSub); break;
            case Qt::Key_Right: triggerAction(SliderSingleStepAdd); break;
            case Qt::Key_PageUp: triggerAction(SliderPageStepSub); break;
            case Qt::Key_PageDown: triggerAction(SliderPageStepAdd); break;
            case Qt::Key_Home: triggerAction(SliderToMinimum); break;
            case Qt::Key_End: triggerAction(SliderToMaximum); break;
            default: event->ignore(); break;
        }
    }
};

}  // namespace

MainWindow::MainWindow(const Form& form) : form_(form), size_(*this) {
    wake_.setSingleShot(true);
    // Places and sizes come from the form.
    auto* const inner = new QWidget(this);  // NOLINT(cppcoreguidelines-owning-memory): Qt's own
    picture_ = new PictureWidget(inner);    // NOLINT(cppcoreguidelines-owning-memory)
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory)
    list_ = new StageListPanel(form.lstStages, inner);
    cameraBar_ = new QScrollBar(Qt::Horizontal);  // NOLINT(cppcoreguidelines-owning-memory)
    spriteBar_ = new SpriteBar;                   // NOLINT(cppcoreguidelines-owning-memory)
    auto* const all = new QWidget(this);          // NOLINT(cppcoreguidelines-owning-memory)
    auto* const rows = new QVBoxLayout(all);      // NOLINT(cppcoreguidelines-owning-memory)
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(inner, 1);
    rows->addWidget(cameraBar_);
    rows->addWidget(spriteBar_);
    statusLine_ = new StatusLine;  // NOLINT(cppcoreguidelines-owning-memory)
    rows->addWidget(statusLine_);
    statusLine_->hide();
    statusLine_->SetProblemsObserver(
        [this] { waiting_.Add([](FormEvents& events) { events.Menu_Click(Menu::mnuProblems); }); });
    cameraBar_->hide();
    spriteBar_->hide();
    inner_ = inner;
    inner->installEventFilter(this);
    setCentralWidget(all);
    BuildBars();
    BuildMouse();
    menus_ = new MenuBar;  // NOLINT(cppcoreguidelines-owning-memory)
    setMenuBar(menus_);
    setAcceptDrops(true);
    BuildList();
}

void MainWindow::BuildList() {
    list_->hide();
    const auto note = [this](WaitingEvents::Event event) { waiting_.Add(std::move(event)); };
    list_->SetEvents({
        {[this](int row) {
             const auto& details = form_.lstStages.details;
             const auto place = static_cast<std::size_t>(row);
             if (place < details.size()) {
                 NoteOpening(details[place].file);
             } else {
                 NoteSelection(row);
             }
         },
         [this](int steps) {
             waiting_.Add([steps](FormEvents& events) { events.lstStages_Step(steps); },
                          WaitingEvents::Kind::Leaving);
         },
         [note](int row) { note([row](FormEvents& events) { events.lstStages_Mark(row); }); },
         [note] { note([](FormEvents& events) { events.lstStages_Leave(); }); },
         [this](const std::string& file) { NoteOpening(file); },
         [this](const std::string& file) { NoteFile(file, &FormEvents::lstStages_OpenFolder); },
         [this](const std::string& file) { NoteFile(file, &FormEvents::lstStages_CopyPath); }},
        [this](const std::string& words) { NoteFile(words, &FormEvents::txtFilter_Change); },
        [this] {
            waiting_.Add([](FormEvents& events) { events.txtFilter_Enter(); },
                         WaitingEvents::Kind::Leaving);
        },
        [this](int width) {
            waiting_.Add([width](FormEvents& events) { events.lstStages_Resize(width); },
                         WaitingEvents::Kind::ListEdge);
        },
        [this] { GiveKeysToPicture(); },
    });
}

// While sprites are looked at the keys are their bar's.
void MainWindow::GiveKeysToPicture() const {
    if (form_.hscSGFX.Visible) {
        spriteBar_->setFocus();
    } else if (form_.lstStages.browses) {
        picture_->setFocus();
    }
}

void MainWindow::NoteFile(const std::string& file, void (FormEvents::*what)(const std::string&)) {
    waiting_.Add([file, what](FormEvents& events) { (events.*what)(file); });
}

// The list may be filled anew before the program hears of it.
void MainWindow::NoteOpening(const std::string& file) {
    waiting_.Add(
        [this, file](FormEvents& events) {
            const auto& details = form_.lstStages.details;
            const auto item = std::ranges::find(details, file, &ListBox::Detail::file);
            if (item != details.end()) {
                events.lstStages_Click(static_cast<Long>(item - details.begin()));
            }
        },
        WaitingEvents::Kind::Leaving);
}

void MainWindow::Wake() {
    if (QAbstractEventDispatcher* const loop = QAbstractEventDispatcher::instance(qApp->thread())) {
        loop->wakeUp();
    }
}

void MainWindow::BuildBars() {
    connect(cameraBar_, &QScrollBar::valueChanged, this, [this](int value) {
        waiting_.Add([value](FormEvents& events) { events.hscHScroll_Change(value); },
                     WaitingEvents::Kind::CameraBar);
    });
    // While the thumb is dragged its values are scrolling, else changes.
    connect(spriteBar_, &QScrollBar::valueChanged, this, [this](int value) {
        const auto tell =
            spriteBar_->isSliderDown() ? &FormEvents::hscSGFX_Scroll : &FormEvents::hscSGFX_Change;
        waiting_.Add([value, tell](FormEvents& events) { (events.*tell)(value); },
                     WaitingEvents::Kind::SpriteBar);
    });
    connect(spriteBar_, &QScrollBar::sliderReleased, this, [this] {
        const int value = spriteBar_->value();
        waiting_.Add([value](FormEvents& events) { events.hscSGFX_Change(value); },
                     WaitingEvents::Kind::SpriteBar);
    });
}

void MainWindow::BuildMouse() {
    ObserveHand(*picture_);
    picture_->SetWheelObserver([this](Long notches, Long x, Long y) {
        waiting_.Add([notches, x, y](FormEvents& events) { events.Form_MouseWheel(notches, x, y); },
                     WaitingEvents::Kind::Button);
    });
    picture_->SetMouseObserver([this](PictureWidget::Mouse what, Long x, Long y) {
        if (what == PictureWidget::Mouse::Down) {
            GiveKeysToPicture();
        }
        waiting_.Add(
            [what, x, y](FormEvents& events) {
                switch (what) {
                    case PictureWidget::Mouse::Down: events.Form_MouseDown(x, y); break;
                    case PictureWidget::Mouse::Move: events.Form_MouseMove(x, y); break;
                    case PictureWidget::Mouse::Up: events.Form_MouseUp(); break;
                }
            },
            what == PictureWidget::Mouse::Move ? WaitingEvents::Kind::PointerMove
                                               : WaitingEvents::Kind::Button);
    });
}

void MainWindow::ObserveHand(PictureWidget& picture) {
    using Hand = PictureWidget::Hand;
    picture.SetScrollObserver([this](Long across, Long down) {
        waiting_.Add([across, down](FormEvents& events) { events.Form_MouseScroll(across, down); });
    });
    picture.SetHandObserver([this](Hand what, Long x, Long y) {
        waiting_.Add(
            [what, x, y](FormEvents& events) {
                switch (what) {
                    case Hand::Twice: events.Form_DblClick(); break;
                    case Hand::MiddleDown: events.Form_MiddleDown(x, y); break;
                    case Hand::MiddleMove: events.Form_MiddleMove(x, y); break;
                    case Hand::MiddleUp: events.Form_MiddleUp(); break;
                }
            },
            what == Hand::MiddleMove ? WaitingEvents::Kind::MiddleMove
                                     : WaitingEvents::Kind::Button);
    });
    picture.SetZoomObserver([this](bool in) {
        const Menu item = in ? Menu::mnuZoomIn : Menu::mnuZoomOut;
        waiting_.Add([item](FormEvents& events) { events.Menu_Click(item); },
                     WaitingEvents::Kind::Once);
    });
}

QList<QAction*> MainWindow::ItemsWithKeys() const {
    QList<QAction*> items;
    for (std::size_t i = 0; i < kMenuCount; ++i) {
        if (form_.menus[i].inFullScreen && !shortcuts_[i].empty()) {
            items.append(actions_[i]);
        }
    }
    return items;
}

void MainWindow::ShowBars() {
    ShowBar(*cameraBar_, form_.hscHScroll);
    ShowBar(*spriteBar_, form_.hscSGFX);
    if (!form_.hscSGFX.Visible) {
        picture_->EndOwn();
    }
    picture_->SetSelection(form_.selection);
}

void MainWindow::ShowBar(QScrollBar& widget, const ScrollBar& bar) const {
    if (widget.isHidden() == bar.Visible) {
        widget.setVisible(bar.Visible);
        // The arrow keys have nothing else to move then (KeyTracker).
        if (&widget == spriteBar_ && bar.Visible) {
            widget.setFocus();
        } else if (widget.hasFocus()) {
            widget.clearFocus();  // where nothing else takes it, a hidden bar would keep it
            GiveKeysToPicture();
        }
    }
    if (bar.Visible && waiting_.Empty()) {
        const QSignalBlocker quiet(&widget);  // what the program does is no move of the user's
        widget.setRange(bar.Min, bar.Max);
        if (!widget.isSliderDown()) {
            widget.setValue(bar.Value);
        }
    }
}

// Addition: names of menus do not go under an arrow. Some window managers make a window wider in
// steps from this width on, of two of the screen's pixels at 1.75 times; what is left over would
// not be painted. So it is a whole number of such steps at every scale in use.
int MainWindow::LeastWidth() const {
    constexpr int kWhole = 8;
    const int least = form_.statusBar.visible ? menus_->WholeWidth() : 0;
    return (least + kWhole - 1) / kWhole * kWhole;
}

QSize MainWindow::minimumSizeHint() const {
    return QMainWindow::minimumSizeHint().expandedTo({LeastWidth(), 0});
}

// The user makes it no narrower. Where it is that already, by a window manager that tiles, the size
// is not the program's to ask for, and the toolkit would ask.
void MainWindow::KeepMenusWhole() {
    const int least = LeastWidth();
    const int held = least <= width() ? least : 0;
    if (std::exchange(heldWidth_, held) != held) {
        setMinimumWidth(held);  // 0: as narrow as its widgets let it
    }
}

void MainWindow::ShowStatus() {
    const StatusBar& status = form_.statusBar;
    if (statusLine_->isHidden() == status.visible) {
        statusLine_->setVisible(status.visible);
    }
    statusLine_->Show(status);
}

HRESULT MainWindow::Present(const CanvasSize& size, std::span<const std::uint32_t> pixels) {
    if (events_ != nullptr) {
        ShowBars();  // with the picture they belong to, also while no message comes
    }
    return picture_->Show(size, pixels);
}

void MainWindow::ShowPicture(Long width, Long height, std::span<const std::uint32_t> pixels) {
    picture_->ShowOwn(width, height, pixels);
}

// The picture itself stands as the form had it when messages were let through last.
InnerSize MainWindow::BoxOnScreen() const {
    const PictureBox& box = form_.picDraw;
    const QRect place(inner_->mapTo(this, QPoint(box.left, box.top)), QSize(box.width, box.height));
    const QSize size = PictureWidget::SizeOnScreen(place, devicePixelRatioF());
    return {size.width(), size.height()};
}

void MainWindow::FillBox(const InnerSize& box, std::span<const std::uint32_t> pixels,
                         const std::string& text) {
    picture_->Fill(box.width, box.height, pixels, Shown(text));
}

void MainWindow::NoteKey(VirtualKey key) {
    waiting_.Add(
        [key](FormEvents& events) { events.Form_KeyDown(key); },
        key == VirtualKey::Escape ? WaitingEvents::Kind::Leaving : WaitingEvents::Kind::Once);
}

void MainWindow::SetEvents(FormEvents* events) {
    events_ = events;
    BuildMenus();
    ShowForm();
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildMenus() {
    QMenu* submenu = nullptr;  // the newest, whose items come next
    for (std::size_t i = 0; i < kMenuCount; ++i) {
        const auto menu = static_cast<Menu>(i);
        if (menu == Menu::mnuStage || menu == Menu::mnuOptions || menu == Menu::mnuAboutMenu ||
            menu == Menu::mnuExtras) {
            submenu = menuBar()->addMenu(QString());
            actions_[i] = submenu->menuAction();
            connect(submenu, &QMenu::aboutToShow, this, [this] { list_->LeaveFilter(); });
            continue;
        }
        const MenuItem& item = form_.menus[i];
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the window's, as Qt has it
        auto* const action = new QAction(this);
        action->setSeparator(item.caption == "-");
        actions_[i] = action;
        const bool inBar = item.place == MenuPlace::Bar;
        (inBar ? static_cast<QWidget*>(menuBar()) : submenu)->addAction(action);
        connect(action, &QAction::triggered, this, [this, i] {
            waiting_.Add(
                [i](FormEvents& events) { events.Menu_Click(static_cast<Menu>(i)); },
                form_.menus[i].leaves ? WaitingEvents::Kind::Leaving : WaitingEvents::Kind::Once);
        });
    }
}

void MainWindow::ShowForm() {
    if (events_ == nullptr) {
        return;  // nothing is designed yet
    }
    ShowMenus();
    ShowRecentFiles();
    list_->ShowList(waiting_.Empty());
    if (form_.lstStages.browses && focusWidget() == nullptr) {
        picture_
            ->setFocus();  // the toolkit would choose the list when the window comes to the front
    }
    ShowBars();
    ShowStatus();
    KeepMenusWhole();
    ShowPresentation();
    const QRect place(form_.picDraw.left, form_.picDraw.top, form_.picDraw.width,
                      form_.picDraw.height);
    if (picture_->geometry() != place) {
        picture_->setGeometry(place);
    }
    const bool showedTitle = std::exchange(showsTitle_, form_.picLoad.visible);
    const std::string noteBefore = std::exchange(titleNote_, form_.titleNote);
    if (showsTitle_ && (!showedTitle || titleNote_ != noteBefore)) {
        static_cast<void>(picture_->Show(CanvasSize(), TitlePicture(Shown(titleNote_))));
    }
}

// Also in what covers the window: who has just changed it wants to see it.
void MainWindow::ShowPresentation() {
    picture_->SetPresentation(form_.presentation);
    if (covering_ != nullptr) {
        covering_->SetPresentation(form_.presentation);
    }
}

// An entry per path, between the two separators.
void MainWindow::ShowRecentFiles() {
    QAction& before = *actions_[static_cast<std::size_t>(Menu::mnubla)];
    QMenu& menu = *actions_[static_cast<std::size_t>(Menu::mnuStage)]->menu();
    while (recentActions_.size() < form_.recentFiles.size()) {
        auto* const action = new QAction(this);  // NOLINT(cppcoreguidelines-owning-memory)
        const auto index = static_cast<Long>(recentActions_.size() + 1);
        connect(action, &QAction::triggered, this, [this, index] {
            waiting_.Add([index](FormEvents& events) { events.MnuRecentFiles_Click(index); },
                         WaitingEvents::Kind::Leaving);
        });
        menu.insertAction(&before, action);
        recentActions_.push_back(action);
    }
    for (std::size_t i = 0; i < form_.recentFiles.size(); ++i) {
        const QString path = Literal(form_.recentFiles[i]);
        if (recentActions_[i]->text() != path) {
            recentActions_[i]->setText(path);
        }
    }
}

void MainWindow::ShowMenus() {
    for (std::size_t i = 0; i < kMenuCount; ++i) {
        const MenuItem& item = form_.menus[i];
        QAction& action = *actions_[i];
        if (const QString caption = item.isLiteral ? Literal(item.caption) : Shown(item.caption);
            !action.isSeparator() && action.text() != caption) {
            action.setText(caption);
        }
        if (action.isEnabled() != item.enabled) {
            action.setEnabled(item.enabled);
        }
        if (action.isVisible() != item.visible) {
            action.setVisible(item.visible);
        }
        if (shortcuts_[i] != item.shortcuts) {
            ShowKeys(i);
        }
        if (tips_[i] != item.tip) {
            tips_[i] = item.tip;
            action.setData(Shown(item.tip));
        }
        // An item has a mark from the first time on that it is checked.
        if (action.isChecked() != item.checked) {
            action.setCheckable(true);
            action.setChecked(item.checked);
        }
    }
}

// Of an item that they choose while its menu is disabled they are the window's as well.
void MainWindow::ShowKeys(std::size_t item) {
    QList<QKeySequence> shortcuts;
    for (const std::string& shortcut : form_.menus[item].shortcuts) {
        shortcuts.append(QKeySequence::fromString(QString::fromStdString(shortcut)));
    }
    shortcuts_[item] = form_.menus[item].shortcuts;
    actions_[item]->setShortcuts(shortcuts);
    if (form_.menus[item].whileLoading) {
        addAction(actions_[item]);
    }
}

void MainWindow::Show() {
    ShowForm();
    // The toolkit would choose a size, each time. A question before this has made the window known
    // to the display already.
    if (!std::exchange(wasShown_, true) && !hasStand_) {
        const QSize wanted(form_.innerWidth, form_.innerHeight + HeightAround());
        resize(wanted.expandedTo(minimumSizeHint()));
        sizeCame_ = true;
    }
    if (!isVisible() && covering_ == nullptr) {
        show();
    }
}

// What stands under the full screen stays as it is.
void MainWindow::Size(Long width, Long height) {
    if (covering_ == nullptr) {
        size_.Ask({width, height + HeightAround()});
    }
    sizeCame_ = true;  // in any case one is reported
}

bool MainWindow::HasRoomFor(Long width, Long height) const {
    const QSize wanted = QSize(width, height + HeightAround()).expandedTo(minimumSizeHint());
    const QSize whole = wanted + frameGeometry().size() - size();
    const QSize most = screen()->availableGeometry().size();
    return covering_ == nullptr && size_.MayBeAsked() && whole.width() <= most.width() &&
           whole.height() <= most.height();
}

void MainWindow::MoveTo(Long left, Long top) {
    if (covering_ == nullptr) {
        size_.AskForPlace({left / kUnitsPerPixel, top / kUnitsPerPixel});
    }
}

// Beyond its inner area the window has just the menu bar, and the bars and lines that the form has.
// (What the widgets measure now says nothing before the window has been laid out.)
int MainWindow::HeightAround() const {
    return menuBar()->sizeHint().height() +
           (form_.hscHScroll.Visible ? cameraBar_->sizeHint().height() : 0) +
           (form_.hscSGFX.Visible ? spriteBar_->sizeHint().height() : 0) +
           (form_.statusBar.visible ? statusLine_->sizeHint().height() : 0);
}

// The picture is shown at whole multiples of the screen's pixels; the next larger one, unless the
// next smaller one is nearly as large as the window's pixels would have it.
InnerSize MainWindow::RoomFor(const CanvasSize& size) const {
    constexpr double kNearly = 0.1;
    const double ratio = devicePixelRatioF();
    const double times = std::ceil(ratio - kNearly);
    const auto room = [&](Long length) {
        return static_cast<Long>(std::ceil(length * times / ratio));
    };
    return {room(size.width), room(size.height)};
}

InnerSize MainWindow::LargestInnerSize() const {
    const QSize frame = frameGeometry().size() - size();
    const QSize most = screen()->size() - frame;
    return {most.width(), most.height() - HeightAround()};
}

void MainWindow::SetCaption(const std::string& caption) {
    setWindowTitle(Shown(caption));
    if (covering_ != nullptr) {
        Front()->setWindowTitle(windowTitle());
    }
}

bool MainWindow::MessageWaiting() {
    return HasToDeliver() || systemEvents_.MayWait();
}

void MainWindow::SleepUntilMessage(std::int64_t nanoseconds) {
    if (!HasToDeliver()) {
        systemEvents_.SleepUntilAny(nanoseconds);
    }
}

// Something that has been taken in already.
bool MainWindow::HasToDeliver() const {
    return !waiting_.Empty() || SizeIsToBeReported() || tookEventsIn_;
}

void MainWindow::CoverBy(PictureWidget* picture) {
    covering_ = picture;
    sight_.Watch(picture != nullptr ? picture->window()->windowHandle() : windowHandle());
}

void MainWindow::DoEvents() {
    tookEventsIn_ = false;
    ShowForm();
    QApplication::processEvents();
    HandOver();
    ShowForm();
}

// What comes while a heavy stage is drawn is taken in here, so that nothing waits after the frame;
// and yet the form is to be shown as it is then.
void MainWindow::NoteEvents() {
    tookEventsIn_ = true;
    QApplication::processEvents();
}

void MainWindow::WaitForEvents() {
    ShowForm();
    if (waiting_.Empty() && !SizeIsToBeReported() && !endRequested_) {
        if (asksAgain_) {
            wake_.start(kAskProgramAgain);
        }
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    HandOver();
}

void MainWindow::Idle() {
    if (events_ != nullptr) {
        asksAgain_ = events_->Form_Idle();
    }
}

// What the program does with an event may let messages through again; then the rest is handed over
// there. The size comes last: what it answers may have been asked for by one of the events.
void MainWindow::HandOver() {
    if (events_ == nullptr) {
        return;
    }
    while (!waiting_.Empty()) {
        waiting_.TakeFirst()(*events_);
    }
    static_cast<void>(ReportSize());
    Idle();
}

bool MainWindow::ReportSize() {
    if (events_ == nullptr || !SizeIsToBeReported()) {
        return false;
    }
    sizeCame_ = false;
    events_->Form_Resize(inner_->width(), inner_->height());
    return true;
}

void MainWindow::FollowSize() {
    if (ReportSize()) {
        ShowForm();
    }
}

bool MainWindow::HasComeUp() const {
    return !isVisible() || (windowHandle()->isExposed() && !sizeCame_);
}

// Not while another one may still come, and not before the window system has placed the window: the
// controls would be laid out for a size that is never shown.
bool MainWindow::SizeIsToBeReported() const {
    return sizeCame_ && !size_.IsAwaited() && isVisible() && windowHandle()->isExposed();
}

WindowPlace MainWindow::Place() const {
    // What covers it covers the screen.
    const QRect frame = covering_ != nullptr ? screen()->geometry() : frameGeometry();
    return {Units(frame.left()), Units(frame.top()), Units(frame.width()), Units(frame.height())};
}

ScreenRectangle MainWindow::Rectangle() const {
    const QRect frame = frameGeometry();
    const QPoint corner = screen()->geometry().topLeft();
    return InScreenPixels({frame.left(), frame.top(), frame.width(), frame.height()},
                          {corner.x(), corner.y(), devicePixelRatioF()});
}

WindowPlace MainWindow::Screen() const {
    const QRect place = screen()->geometry();
    return {Units(place.left()), Units(place.top()), Units(place.width()), Units(place.height())};
}

// Before the window is there: of the screen with the pointer, where window managers put new ones.
InnerSize MainWindow::WorkArea() const {
    const QScreen* screenOfPointer = QGuiApplication::screenAt(QCursor::pos());
    const QScreen& chosen =
        windowHandle() == nullptr && screenOfPointer != nullptr ? *screenOfPointer : *screen();
    const QSize size = chosen.availableGeometry().size();
    return {size.width(), size.height()};
}

void MainWindow::ComeUpAt(const WindowStand& stand) {
    std::vector<ScreenRectangle> areas;
    for (const QScreen* const each : QGuiApplication::screens()) {
        const QRect area = each->availableGeometry();
        areas.push_back({area.left(), area.top(), area.width(), area.height()});
    }
    const WindowStand on = OnScreens(stand, areas);
    const QSize size = QSize(on.size.width, on.size.height).expandedTo(minimumSizeHint());
    hasStand_ = true;
    resize(size);
    if (on.spot) {
        move(on.spot->left, on.spot->top);
    }
    size_.StandAt({size, pos()});
    sizeCame_ = true;
    if (on.maximised) {
        setWindowState(Qt::WindowMaximized);
    }
}

// A Wayland compositor does not say where a window stands.
WindowStand MainWindow::Stand() const {
    const WindowSize::Free& free = size_.WhenFree();
    WindowStand stand{std::nullopt, {free.size.width(), free.size.height()}, isMaximized()};
    if (!IsWayland()) {
        stand.spot = {free.place.x(), free.place.y()};
    }
    return stand;
}

WindowHandle MainWindow::Foreground() const {
    if (IsCovered() && !covering_->window()->isFullScreen()) {
        return reinterpret_cast<WindowHandle>(this);  // the user, by the window manager's means
    }
    const bool ours = QGuiApplication::applicationState() == Qt::ApplicationActive;
    QWidget* active = ours ? QApplication::activeWindow() : nullptr;
    if (active == nullptr) {
        return awaited_;
    }
    while (active->parentWidget() != nullptr) {
        active = active->parentWidget()->window();  // a box counts as what it belongs to
    }
    return reinterpret_cast<WindowHandle>(active);
}

QWidget* MainWindow::Front() {
    return covering_ != nullptr ? covering_->window() : this;
}

void MainWindow::MakeWay() {
    if (IsCovered() && Front()->isFullScreen()) {
        Front()->showNormal();
    }
}

void MainWindow::GiveFocusBack() {
    if (!IsCovered()) {
        return;
    }
    if (!Front()->isFullScreen()) {
        Front()->showFullScreen();
    }
    if (!Front()->isActiveWindow()) {
        AwaitFocus(reinterpret_cast<WindowHandle>(Front()));
        Front()->activateWindow();
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // it goes with the program
    NoteUnload();
}

void MainWindow::NoteUnload() {
    endRequested_ = true;
    waiting_.Add([](FormEvents& events) { events.Form_Unload(); });
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    BlackenBeneath(*windowHandle());
    sight_.Watch(windowHandle());
    waiting_.Add([](FormEvents& events) { events.Form_Activate(); });
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    size_.Came();
}

void MainWindow::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    size_.Moved();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        size_.StateCame();
    }
}

// A bar that comes or goes changes the inner area alone.
bool MainWindow::eventFilter(QObject* receiver, QEvent* event) {
    if (receiver == inner_ &&
        (event->type() == QEvent::Resize || event->type() == QEvent::ScreenChangeInternal)) {
        sizeCame_ = true;
    }
    return QMainWindow::eventFilter(receiver, event);
}

void MainWindow::TakeRequest(Request request) {
    if (!request.paths.empty()) {
        requested_ = PathsInTurn(std::move(request.paths), requested_);
        waiting_.Add(
            [this](FormEvents& events) { events.Form_Given(std::exchange(requested_, {})); },
            WaitingEvents::Kind::Request);
    }
    QWidget* const asked = QApplication::activeModalWidget();
    QWidget* const shown = covering_ != nullptr ? covering_->window() : this;
    BringToFront(asked != nullptr ? *asked : *shown, request.mark);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!LocalFiles(*event->mimeData()).empty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event) {
    const std::vector<std::string> paths = LocalFiles(*event->mimeData());
    if (!paths.empty()) {
        waiting_.Add([paths](FormEvents& events) { events.Form_OLEDragDrop(paths); },
                     WaitingEvents::Kind::Leaving);
        event->acceptProposedAction();
    }
}

}  // namespace scenara
