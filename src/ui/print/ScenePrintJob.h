#pragma once

#include "present/scene/SceneView.h"
#include "ui/print/PrintJob.h"

#include <QString>

namespace kestrabel {

/// What the map or the speed graph shows, as large as a page allows.
class CScenePrintJob : public CPrintJob
{
public:
    /// The view outlives the job.
    CScenePrintJob(CSceneView& view, QString strHeader, QString strDate);

    int Paginate(QPainter&, const QRectF&) override { return 1; }
    void DrawPage(QPainter& painter, const QRectF& page, int nPage) override;

private:
    CSceneView& m_view;
    QString m_strHeader;
    QString m_strDate;
};

} // namespace kestrabel
