#pragma once

#include <QLabel>

namespace kestrabel {

/// Stands where the map and the speed graph will be.
class CPlaceholderPane : public QLabel
{
public:
    explicit CPlaceholderPane(const QString& strName, QWidget* pParent = nullptr) : QLabel(strName, pParent)
    {
        setAlignment(Qt::AlignCenter);
        setFrameStyle(StyledPanel | Sunken);
        setEnabled(false);
        // The splitters alone say how large the pane is.
        setMinimumSize(1, 1);
    }
};

} // namespace kestrabel
