#include "samples/SampleBusiness.h"
#include "samples/SampleSettlements.h"
#include "samples/SampleWriter.h"

#include <QDir>
#include <QGuiApplication>
#include <QTextStream>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const QString usage = u"Usage: make_samples FOLDER [YEARS] [SEED]\n"
                      "YEARS is 1 to 20, by default 3; SEED is a whole number, by default 1."_s;

int fail(const QString &message)
{
    QTextStream(stderr) << message << Qt::endl;
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen"); // it sets type, but shows nothing
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    bool yearsAreNumber = true;
    bool seedIsNumber = true;
    const int years = arguments.size() > 2 ? arguments.at(2).toInt(&yearsAreNumber) : 3;
    const quint32 seed = arguments.size() > 3 ? arguments.at(3).toUInt(&seedIsNumber) : 1;
    if (arguments.size() < 2 || arguments.size() > 4 || !yearsAreNumber || !seedIsNumber
        || years < fewestSampleYears || years > mostSampleYears)
        return fail(usage);

    QString error;
    const QString folder = arguments.at(1);
    const SampleBusiness business = makeSampleBusiness(years, seed);
    if (!writeSampleFiles(folder, business, error)
        || !writeSampleSettlements(QDir(folder).filePath(u"settlements"_s), business, error))
        return fail(error);
    return EXIT_SUCCESS;
}
