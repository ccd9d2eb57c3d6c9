#include "app/ProgramFolder.h"
#include "platform/PosixProcessStarter.h"
#include "ui/MainFrame.h"
#include "ui/QtSettings.h"
#include "ui/QtText.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QIcon>
#include <QStandardPaths>

int main(int nArguments, char** ppArguments)
{
    using namespace kestrabel;
    QApplication::setApplicationName("kestrabel");
    QApplication::setApplicationDisplayName("Kestrabel");
    QApplication::setApplicationVersion(KESTRABEL_VERSION);
    QApplication::setDesktopFileName("kestrabel");
    const QApplication application(nArguments, ppArguments);
    QApplication::setWindowIcon(QIcon(":/icons/kestrabel.svg"));

    QCommandLineParser parser;
    parser.setApplicationDescription("Turns the track files of GPS speed events into ranked results.");
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument("FILE", "a project, or track files", "[FILE...]");
    parser.process(application);
    std::vector<std::string> files;
    for (const QString& strFile : parser.positionalArguments())
        files.push_back(FromQt(QFileInfo(strFile).absoluteFilePath()));

    CQtSettings settings;
    const std::string strFolder =
        ProgramFolder(FromQt(QApplication::applicationDirPath()) + '/',
                      FromQt(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)) + '/');
    CMainFrame frame(settings, strFolder);
    if (!frame.Start(files))
        return 1;
    frame.show();
    if (const std::string strProblem = settings.Problem(); !strProblem.empty())
        frame.Desktop().ShowMessage(strProblem);
    return QApplication::exec();
}
