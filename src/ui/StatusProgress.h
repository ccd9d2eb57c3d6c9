#pragma once

#include "platform/Progress.h"

#include <QString>

#include <vector>

class QLabel;
class QProgressBar;
class QWidget;

namespace kestrabel {

/// Shows long operations in pane 0 of the status bar: their text, and a bar behind it. Operations may run
/// within another; the outer one comes back.
class CStatusProgress : public CProgressDisplay
{
public:
    /// The pane's label and a bar on it, which both outlive this.
    CStatusProgress(QLabel& message, QProgressBar& bar);

    void Begin(std::string_view strText) override;
    void Show(double dFraction) override;
    void End() override;

private:
    void Place();

    QLabel& m_message;
    QProgressBar& m_bar;

    struct SEarlier
    {
        QString strText;
        int nValue;
    };
    std::vector<SEarlier> m_earlier; ///< what each running operation has covered
};

} // namespace kestrabel
