#include "ui/dialogs/TextDialog.h"

#include "ui/dialogs/BoundDialog.h"
#include "ui/QtText.h"

#include <QPlainTextEdit>

namespace kestrabel {

void ShowLongText(QWidget* pParent, std::string_view strTitle, std::string_view strText)
{
    constexpr int nCharacters = 90;
    constexpr int nLines = 25;
    CBoundDialog box(pParent, strTitle);
    auto* pText = new QPlainTextEdit(ToQt(strText));
    pText->setReadOnly(true);
    pText->setAccessibleName("Message");
    pText->setTabChangesFocus(true);
    pText->setMinimumSize(box.fontMetrics().averageCharWidth() * nCharacters,
                          box.fontMetrics().lineSpacing() * nLines);
    box.Body().addWidget(pText);
    box.Run("OK", "");
}

} // namespace kestrabel
