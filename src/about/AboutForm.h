#pragma once

#include "windowing/CommonWindow.h"
#include "windowing/KeyHold.h"

#include <functional>

class PictureButton;
class ProgramState;
class QKeyEvent;
class QLabel;
class QTextBrowser;
class QUrl;

// The About window: the program's name, edition and release, a scrolled description with the
// terms of use, and a link to the documentation, in the chosen language and the scheme in force.
// A tool window of the Main window, so the program keeps its one taskbar entry.
class AboutForm : public CommonWindow
{
    Q_OBJECT

public:
    static constexpr int Width = 360;
    static constexpr int Height = 273;

    // Opens the About window beside the Main window, or brings the one already open to the front.
    static AboutForm *open(ProgramState &program);
    // The open About window, or null.
    static AboutForm *find();

    explicit AboutForm(ProgramState &program, QWidget *parent = nullptr);
    ~AboutForm() override;

    // Sets every text in the chosen language and paints the window in the scheme and border in
    // force, as the Main window's routine of the same name does.
    void SettingLabelesAndButtons();

    // Opens a document in the desktop's handler; tests replace it.
    std::function<void(const QUrl &url)> openUrl;

    QLabel *LabelName = nullptr;
    QLabel *LabelEdition = nullptr;
    PictureButton *KnClose = nullptr;
    // The version line: the window's second picture button.
    PictureButton *KnVersion = nullptr;
    QTextBrowser *TextDescription = nullptr;
    QLabel *LabelLink = nullptr;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void keyUpTimedOut() override;

private:
    void createControls();
    void paintLook();
    bool keyDown(const QKeyEvent &key);
    bool keyUp(const QKeyEvent &key);

    KeyHold m_hold;
    // Esc went down in this window: its release closes it.
    bool EscArmed = false;
    bool m_closed = false;
    QString m_documentation;
};
