#pragma once

#include "SettingsEditor.h"
#include "ViewFormKeyTable.h"
#include "ViewFormKeys.h"
#include "windowing/CommonWindow.h"

#include <QPointer>

#include <array>

class CalendarMonthExtForm;
class PictureButton;
class PicturePairs;
class QComboBox;
class QLabel;
class QLineEdit;
class QScrollBar;

// The Calendar Settings window. Every choice shows on the Main window at once; Ok writes the
// settings file, Cancel reads it back. While it is open the Main window (and the About window)
// takes no input.
class ViewForm : public CommonWindow
{
    Q_OBJECT

public:
    static constexpr int CheckAreaMs = 97;
    static constexpr int PressedPictureMs = 100;

    ViewForm(ProgramState &program, CalendarMonthExtForm &mainForm);
    ~ViewForm() override;

    // The one Settings window: opened beside the Main window, or the open one brought forward.
    static ViewForm *showNew(ProgramState &program, CalendarMonthExtForm &mainForm);

    // Captions, list entries and the visible Cancel pictures, in the current language.
    void SetSettingsCaptions();
    // Selects in each list the entry of the current setting; the scroll bar shows the border.
    void FillSettingsFromCurrent();
    // Colours this window's labels, lists and frame in the scheme in force.
    void ApplySettingsColors();
    // Every Ok/Cancel picture back to normal, unless the pointer is over it.
    void ResetButtonPictures();
    // Forgets where the pointer hovered, so no tooltip stays or follows.
    void ClearHoverFlags(bool includeLists);
    // Both windows above their shadows, this one in front with the focus.
    void RestackWindows();

    const SettingsEditor &editor() const { return m_editor; }
    const ViewFormKeyTable &keys() const { return m_keys->table(); }
    QComboBox *list(ViewFormText::List list) const;
    // The row labels, top to bottom.
    std::array<QLabel *, 7> rowLabels() const;

    QLabel *LabelGeneral = nullptr;
    QLabel *LabelGeneralSh = nullptr;
    QLabel *LabelLang = nullptr;
    QLabel *LabelFirstDay = nullptr;
    QLabel *LabelColorScheme = nullptr;
    QLabel *LabelBordWidthGen = nullptr;
    QLabel *LabelAlignCenterMain = nullptr;
    QLabel *LabelBackPictMain = nullptr;
    QLabel *LabelTopmostMain = nullptr;
    QComboBox *ListLang = nullptr;
    QComboBox *ListFirstDay = nullptr;
    QComboBox *ListColorScheme = nullptr;
    QScrollBar *HScrollBordWidthGen = nullptr;
    QComboBox *ListAlignCenterMain = nullptr;
    QComboBox *ListBackPictMain = nullptr;
    QComboBox *ListTopmostMain = nullptr;
    // The "Black" pictures are the normal look; the "Blue" one of a pair covers it while the
    // pointer is over it or while a key presses it.
    PictureButton *KnOkBlack = nullptr;
    PictureButton *KnOkBlue = nullptr;
    PictureButton *KnCancelBlackEng = nullptr;
    PictureButton *KnCancelBlueEng = nullptr;
    PictureButton *KnCancelBlackRus = nullptr;
    PictureButton *KnCancelBlueRus = nullptr;
    QPushButton *KnOk = nullptr;
    QPushButton *KnCancel = nullptr;
    QPushButton *KnClose = nullptr;
    QLineEdit *TxtCheckCyrFont = nullptr;

Q_SIGNALS:
    // F1: the About window is wanted.
    void aboutWindowRequested();
    // The Main window was redrawn for a changed (or restored) setting; other open windows follow.
    void previewed();

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void TimerCheckAreaFormTick() override;
    void keyUpTimedOut() override;

private:
    friend class ViewFormKeys; // runs the window's commands for its keys
    enum class From { Picture, Elsewhere };

    void connectControls();
    void listClick(ViewFormText::List list, int index);
    void showEffects(SettingsEditor::Effects effects);
    void previewOnMain();
    bool startClosing(PictureButton *pressed, From from);
    void KnOkClick(From from);
    void KnCancelClick(From from);
    void Unload();
    void setWaitingWindowsEnabled(bool enabled);
    PictureButton *cancelPicture(bool blue) const;
    QWidget *aboutForm() const;

    ProgramState &m_program;
    QPointer<CalendarMonthExtForm> m_main;
    QPointer<QWidget> m_about;
    SettingsEditor m_editor;
    ViewFormKeys *m_keys = nullptr;
    PicturePairs *m_pictures = nullptr;
    bool m_ownClose = false; // Ok or Cancel closes, not the program's exit
};
