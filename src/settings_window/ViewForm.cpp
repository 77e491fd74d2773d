#include "ViewForm.h"

#include "PicturePairs.h"
#include "ViewFormBuilder.h"
#include "ViewFormLayout.h"
#include "ViewFormLook.h"
#include "app/FileUtils.h"
#include "app/ProgramState.h"
#include "app/SchemeColors.h"
#include "app/SettingsFile.h"
#include "appearance/AppearanceNames.h"
#include "appearance/PictureButton.h"
#include "calendar/CalendarMonthExtForm.h"
#include "tooltip/ToolTips.h"
#include "windowing/Placement.h"
#include "windowing/Shadow.h"
#include "windowing/ShadowKeeper.h"
#include "windowing/WindowBehaviour.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QRandomGenerator>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>
#include <QWindow>

using ViewFormText::List;
using Effect = SettingsEditor::Effect;

namespace {

std::function<QString(const QString &)> resolver(ProgramState &program, bool scheme)
{
    if (SettingsFile *file = program.settingsFile())
        return scheme ? file->context().resolveColorScheme : file->context().resolvePicture;
    return [scheme](const QString &choice) {
        QRandomGenerator &random = *QRandomGenerator::global();
        return scheme ? AppearanceNames::resolveColorScheme(choice, random)
                      : AppearanceNames::resolvePicture(choice, random);
    };
}

} // namespace

ViewForm::ViewForm(ProgramState &program, CalendarMonthExtForm &mainForm)
    : CommonWindow(program, QStringLiteral("ViewForm"),
                   QSize(ViewFormLayout::Width, ViewFormLayout::Height))
    , m_program(program)
    , m_main(&mainForm)
    , m_editor(program.settings(), resolver(program, true), resolver(program, false))
{
    // No taskbar entry of its own: the program has one, on the Main window.
    setWindowFlag(Qt::Tool);
    setWindowTitle(QStringLiteral("  Calendar Settings  "));
    TimerCheckAreaForm->setInterval(CheckAreaMs);
    ViewFormBuilder::createControls(*this);
    m_pictures = new PicturePairs(this,
                                  { { { KnOkBlack, KnOkBlue },
                                      { KnCancelBlackEng, KnCancelBlueEng },
                                      { KnCancelBlackRus, KnCancelBlueRus } } });
    ClearHoverFlags(true);

    m_editor.IsFilling = true;
    SetSettingsCaptions();
    FillSettingsFromCurrent();
    m_editor.IsFilling = false;
    connectControls();

    setWaitingWindowsEnabled(false);
    ApplySettingsColors();
    attachCommonParts(false);
    for (QWidget *title : { LabelGeneral, LabelGeneralSh })
        behaviour().addDragArea(this, title);
    m_keys = new ViewFormKeys(*this);
    ToolTips::attach(*this, TipTexts::viewFormTips());
    m_program.setFormLoaded(objectName(), true);
}

ViewForm::~ViewForm()
{
    // The controls go before the QObject part of us; no key may reach the filter meanwhile.
    delete m_keys;
    m_keys = nullptr;
    m_program.setFormLoaded(QStringLiteral("ViewForm"), false);
}

ViewForm *ViewForm::showNew(ProgramState &program, CalendarMonthExtForm &mainForm)
{
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (auto *open = qobject_cast<ViewForm *>(w); open && !open->m_ownClose) {
            open->RestackWindows();
            return open;
        }
    }
    auto *form = new ViewForm(program, mainForm);
    const QScreen *screen =
        mainForm.screen() ? mainForm.screen() : QGuiApplication::primaryScreen();
    const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1024, 768);
    form->move(Placement::besideTopLeft(mainForm.geometry(), form->size(), area,
                                        ViewFormLayout::Gap, Placement::NoRoom::ScreenCentre));
    // A window manager keeps it above the calendar and off the taskbar.
    form->winId();
    if (QWindow *main = mainForm.windowHandle())
        form->windowHandle()->setTransientParent(main);
    form->showWindow();
    form->ButtFocus->setFocus();
    return form;
}

QComboBox *ViewForm::list(List list) const
{
    // In the order of the List names.
    const std::array<QComboBox *, 6> lists {
        ListLang,         ListFirstDay,        ListColorScheme,
        ListBackPictMain, ListAlignCenterMain, ListTopmostMain
    };
    return lists.at(static_cast<std::size_t>(list));
}

std::array<QLabel *, 7> ViewForm::rowLabels() const
{
    return { LabelLang,         LabelFirstDay,        LabelColorScheme,
             LabelBordWidthGen, LabelAlignCenterMain, LabelBackPictMain,
             LabelTopmostMain };
}

void ViewForm::connectControls()
{
    for (const List l : ViewFormText::AllLists) {
        // A user's choice, even of the entry already shown; never the window's own fills.
        connect(list(l), &QComboBox::activated, this,
                [this, l](int index) { listClick(l, index); });
    }
    connect(HScrollBordWidthGen, &QScrollBar::valueChanged, this, [this](int width) {
        if (m_editor.IsFilling)
            return;
        hideToolTip();
        showEffects(m_editor.chooseBorderWidth(width));
    });
    for (PictureButton *ok : { KnOkBlack, KnOkBlue })
        connect(ok, &QPushButton::clicked, this, [this] { KnOkClick(From::Picture); });
    for (PictureButton *cancel :
         { KnCancelBlackEng, KnCancelBlueEng, KnCancelBlackRus, KnCancelBlueRus })
        connect(cancel, &QPushButton::clicked, this, [this] { KnCancelClick(From::Picture); });
    connect(KnOk, &QPushButton::clicked, this, [this] { KnOkClick(From::Elsewhere); });
    connect(KnCancel, &QPushButton::clicked, this, [this] { KnCancelClick(From::Elsewhere); });
    connect(KnClose, &QPushButton::clicked, this, [this] { KnOkClick(From::Elsewhere); });
}

void ViewForm::SetSettingsCaptions()
{
    ViewFormBuilder::setCaptions(*this, m_program.settings().Language);
}

void ViewForm::FillSettingsFromCurrent()
{
    for (const List l : ViewFormText::AllLists)
        list(l)->setCurrentIndex(ViewFormText::indexOf(l, m_editor.setting(l)));
    HScrollBordWidthGen->setValue(m_program.settings().CalendarBorderWidth);
}

void ViewForm::ApplySettingsColors()
{
    ViewFormLook::apply(*this, m_program.settings());
}

void ViewForm::ResetButtonPictures()
{
    m_pictures->reset();
}

void ViewForm::ClearHoverFlags(bool includeLists)
{
    hideToolTip();
    TimerToolTip->stop();
    if (!includeLists)
        return;
    // A list keeps its hover look after its drop-down closed until the pointer moves again.
    for (const List l : ViewFormText::AllLists) {
        list(l)->setAttribute(Qt::WA_UnderMouse, false);
        list(l)->update();
    }
}

void ViewForm::RestackWindows()
{
    if (auto *keeper = findChild<ShadowKeeper *>(QString(), Qt::FindDirectChildrenOnly))
        keeper->restack();
    behaviour().restackMainForm();
    raise();
    activateWindow();
}

void ViewForm::listClick(List l, int index)
{
    if (m_editor.IsFilling)
        return;
    showEffects(m_editor.choose(l, index));
    ClearHoverFlags(true);
}

void ViewForm::showEffects(SettingsEditor::Effects effects)
{
    Settings &s = m_program.settings();
    if (effects & Effect::Recaption) {
        m_editor.IsFilling = true;
        SetSettingsCaptions();
        FillSettingsFromCurrent();
        m_editor.IsFilling = false;
    }
    if (effects & Effect::PictureToNone)
        ListBackPictMain->setCurrentIndex(ViewFormText::indexOf(List::BackPict, s.CalendarPicture));
    if (effects & Effect::Recolour) {
        ApplySchemeColors(s);
        ApplySettingsColors();
        if (Shadow *shadow = ShadowForm())
            shadow->setShadowColor(s.ShadowColor);
    } else if (effects & Effect::Borders) {
        ViewFormLook::paintBody(*this, s);
    }
    if (effects & (Effect::PreviewMain | Effect::Recolour | Effect::Borders))
        previewOnMain();
    if (effects & Effect::CentreMain)
        centreWindow(m_main);
}

void ViewForm::previewOnMain()
{
    if (!m_main)
        return;
    // One repaint per call, of what the call left, instead of one per control it touched.
    m_main->setUpdatesEnabled(false);
    m_main->SettingLabelesAndButtons();
    m_main->setUpdatesEnabled(true);
    m_main->setUpdatesEnabled(false);
    m_main->UpdateCalendarDate();
    m_main->setUpdatesEnabled(true);
    if (Shadow *shadow = m_main->ShadowForm())
        shadow->setShadowColor(m_program.settings().ShadowColor);
    Q_EMIT previewed();
}

bool ViewForm::startClosing(PictureButton *pressed, From from)
{
    if (m_program.IsBusy() || !isEnabled() || m_editor.IsFilling)
        return false;
    if (QApplication::activeWindow() != this) {
        raise();
        activateWindow();
    }
    if (from != From::Picture) {
        // A key or the close control looks like a click on the picture.
        PicturePairs::press(pressed);
        const QPointer<ViewForm> alive(this);
        Wait(PressedPictureMs, true, m_program.waitingFlag());
        if (!alive || m_editor.IsFilling)
            return false;
    }
    ResetButtonPictures();
    return true;
}

void ViewForm::KnOkClick(From from)
{
    if (!startClosing(KnOkBlue, from))
        return;
    m_editor.keepResolved();
    // A failed save leaves the old file whole; the window closes all the same.
    if (SettingsFile *file = m_program.settingsFile())
        file->WriteSettings();
    // Shadows by ShadowMode, their colour, topmost, centring and the taskbar caption.
    behaviour().applySettings();
    m_editor.IsFilling = true;
    m_ownClose = true;
    close();
}

void ViewForm::KnCancelClick(From from)
{
    if (!startClosing(cancelPicture(true), from))
        return;
    // The file holds the previous values; the window keeps none of its own.
    if (SettingsFile *file = m_program.settingsFile())
        file->ReadSettings();
    m_editor.restoreResolved();
    ApplySchemeColors(m_program.settings());
    previewOnMain();
    // What changed goes back on screen before this window does.
    if (m_editor.IsChanged && m_main)
        m_main->repaint();
    RestackWindows();
    m_editor.IsFilling = true;
    m_ownClose = true;
    close();
}

void ViewForm::closeEvent(QCloseEvent *event)
{
    if (!m_ownClose && event->spontaneous()) {
        // The window manager's close is the close control's: Ok. Qt drops a close asked for
        // while it delivers its own close event, so Ok runs once this event is done.
        event->ignore();
        QTimer::singleShot(0, this, [this] { KnOkClick(From::Elsewhere); });
        return;
    }
    // The program's exit closes us too; the Main window then goes anyway.
    if (m_ownClose)
        Unload();
    event->accept();
}

void ViewForm::Unload()
{
    ClearHoverFlags(true);
    ResetButtonPictures();
    setWaitingWindowsEnabled(true);
    m_program.setFormLoaded(objectName(), false);
    if (m_main) {
        m_main->raise();
        m_main->activateWindow();
        m_main->ButtFocus->setFocus();
    }
}

void ViewForm::setWaitingWindowsEnabled(bool enabled)
{
    if (!enabled)
        m_about = aboutForm();
    for (QWidget *w : { static_cast<QWidget *>(m_main.data()), m_about.data() }) {
        if (w)
            w->setEnabled(enabled);
    }
}

QWidget *ViewForm::aboutForm() const
{
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QStringLiteral("AboutForm"))
            return w;
    }
    return nullptr;
}

PictureButton *ViewForm::cancelPicture(bool blue) const
{
    if (Captions::isEnglish(m_program.settings().Language))
        return blue ? KnCancelBlueEng : KnCancelBlackEng;
    return blue ? KnCancelBlueRus : KnCancelBlackRus;
}

void ViewForm::changeEvent(QEvent *event)
{
    // Activation: the shadow keeper restacks the pair; no hover from before stays.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        ClearHoverFlags(false);
    CommonWindow::changeEvent(event);
}

void ViewForm::TimerCheckAreaFormTick()
{
    // The pointer polling: a hover picture whose Leave went astray goes back.
    if (!m_program.IsBusy())
        m_pictures->dropStray();
}

void ViewForm::keyUpTimedOut()
{
    m_keys->table().keyUpTimedOut();
}
