#include "ViewFormBuilder.h"

#include "ViewForm.h"
#include "ViewFormLayout.h"
#include "appearance/CaptionLabel.h"
#include "appearance/Captions.h"
#include "appearance/CyrillicFont.h"
#include "appearance/PictureButton.h"
#include "windowing/NamedControl.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>

namespace {

using L = ViewFormLayout;

PictureButton *picture(QWidget *parent, const char *name, const QRect &geometry,
                       ButtonArt::Picture art, const Captions::Pair &word, bool english)
{
    auto *b = named<PictureButton>(parent, name, geometry, art);
    // The word is the picture's, whatever the window's language: the pair shown says it.
    const QString text = Captions::pick(word, english ? QStringLiteral("English") : QString());
    b->setText(text);
    b->setWord(text);
    return b;
}

// A pair of pictures: the normal one takes the focus; the hover one lies over it, hidden.
void picturePair(QWidget *parent, PictureButton *&normal, PictureButton *&hover,
                 const char *normalName, const char *hoverName, const QRect &geometry,
                 const Captions::Pair &word, bool english)
{
    normal = picture(parent, normalName, geometry, ButtonArt::Picture::Word, word, english);
    normal->setFocusPolicy(Qt::StrongFocus);
    hover = picture(parent, hoverName, geometry, ButtonArt::Picture::Word, word, english);
    hover->setFocusPolicy(Qt::NoFocus);
    hover->hide();
}

QComboBox *list(QWidget *parent, const char *name, int row, QLabel *label)
{
    auto *box = named<QComboBox>(parent, name, L::rowControl(row));
    box->setMaxVisibleItems(10);
    label->setBuddy(box);
    return box;
}

} // namespace

namespace ViewFormBuilder {

void createControls(ViewForm &form)
{
    QWidget *w = &form;
    // The probe stays hidden; the window's texts take the face it settled on.
    form.TxtCheckCyrFont = named<QLineEdit>(w, "TxtCheckCyrFont", QRect(-100, -100, 40, 20));
    form.TxtCheckCyrFont->setText(QStringLiteral("Язык"));
    form.TxtCheckCyrFont->setFont(CyrillicFont::probe(form.font()));
    form.TxtCheckCyrFont->hide();
    form.setFont(form.TxtCheckCyrFont->font());

    // The title's shadow lies one pixel down and right, under the title.
    form.LabelGeneralSh =
        named<CaptionLabel>(w, "LabelGeneralSh", L::LabelGeneral.translated(1, 1));
    form.LabelGeneral = named<CaptionLabel>(w, "LabelGeneral", L::LabelGeneral);
    for (QLabel *title : { form.LabelGeneralSh, form.LabelGeneral }) {
        QFont f = title->font();
        f.setBold(true);
        f.setPointSizeF(12);
        title->setFont(f);
    }

    const char *labels[] = { "LabelLang",         "LabelFirstDay",        "LabelColorScheme",
                             "LabelBordWidthGen", "LabelAlignCenterMain", "LabelBackPictMain",
                             "LabelTopmostMain" };
    QLabel **members[] = {
        &form.LabelLang,         &form.LabelFirstDay,        &form.LabelColorScheme,
        &form.LabelBordWidthGen, &form.LabelAlignCenterMain, &form.LabelBackPictMain,
        &form.LabelTopmostMain
    };
    for (int row = 0; row < L::RowCount; ++row)
        *members[row] = named<CaptionLabel>(w, labels[row], L::rowLabel(row));

    form.ListLang = list(w, "ListLang", 0, form.LabelLang);
    form.ListFirstDay = list(w, "ListFirstDay", 1, form.LabelFirstDay);
    form.ListColorScheme = list(w, "ListColorScheme", 2, form.LabelColorScheme);
    form.HScrollBordWidthGen = named<QScrollBar>(w, "HScrollBordWidthGen", L::rowControl(3));
    form.HScrollBordWidthGen->setOrientation(Qt::Horizontal);
    form.HScrollBordWidthGen->setRange(0, 3);
    form.HScrollBordWidthGen->setSingleStep(1);
    form.HScrollBordWidthGen->setPageStep(1);
    // A scroll bar's keys run backwards by default; Right widens the border here.
    form.HScrollBordWidthGen->setInvertedControls(false);
    form.HScrollBordWidthGen->setFocusPolicy(Qt::StrongFocus);
    form.LabelBordWidthGen->setBuddy(form.HScrollBordWidthGen);
    form.ListAlignCenterMain = list(w, "ListAlignCenterMain", 4, form.LabelAlignCenterMain);
    form.ListBackPictMain = list(w, "ListBackPictMain", 5, form.LabelBackPictMain);
    form.ListTopmostMain = list(w, "ListTopmostMain", 6, form.LabelTopmostMain);

    picturePair(w, form.KnOkBlack, form.KnOkBlue, "KnOkBlack", "KnOkBlue", L::KnOkPicture,
                Captions::KnOkWord, true);
    picturePair(w, form.KnCancelBlackEng, form.KnCancelBlueEng, "KnCancelBlackEng",
                "KnCancelBlueEng", L::KnCancelPicture, Captions::KnCancelWord, true);
    picturePair(w, form.KnCancelBlackRus, form.KnCancelBlueRus, "KnCancelBlackRus",
                "KnCancelBlueRus", L::KnCancelPicture, Captions::KnCancelWord, false);

    // Last in the focus chain, which starts at the first list.
    form.KnClose = picture(w, "KnClose", L::KnClose, ButtonArt::Picture::Close, {}, true);
    form.KnClose->setFocusPolicy(Qt::StrongFocus);

    // The actions themselves: the pictures, keys and the close control run them.
    for (QPushButton **action : { &form.KnOk, &form.KnCancel }) {
        *action = new QPushButton(QStringLiteral("Ok"), w);
        (*action)->setObjectName(action == &form.KnOk ? QStringLiteral("KnOk")
                                                      : QStringLiteral("KnCancel"));
        (*action)->hide();
    }
}

void setCaptions(ViewForm &form, const QString &language)
{
    using namespace ViewFormText;
    for (QLabel *title : { form.LabelGeneral, form.LabelGeneralSh })
        title->setText(Captions::pick(Caption, language));
    for (std::size_t row = 0; row < std::size(RowLabels); ++row)
        form.rowLabels().at(row)->setText(Captions::pick(RowLabels[row], language));
    for (const List l : AllLists) {
        form.list(l)->clear();
        form.list(l)->addItems(entries(l, language));
    }
    const bool english = Captions::isEnglish(language);
    form.KnCancelBlackEng->setVisible(english);
    form.KnCancelBlackRus->setVisible(!english);
    form.KnCancelBlueEng->hide();
    form.KnCancelBlueRus->hide();
    nameControls(form, language);
}

void nameControls(ViewForm &form, const QString &language)
{
    form.setAccessibleName(form.LabelGeneral->text().trimmed());
    form.KnClose->setAccessibleName(Captions::pick(ViewFormText::KnCloseName, language));
    // A list reads as its label says (its entry is its value); its tooltip is its description.
    for (QLabel *label : form.findChildren<QLabel *>()) {
        if (QWidget *control = label->buddy())
            control->setAccessibleName(label->text().trimmed());
    }
    form.HScrollBordWidthGen->setAccessibleName(form.LabelBordWidthGen->text());
}

} // namespace ViewFormBuilder
