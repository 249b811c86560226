// A program as its user starts it: arguments and input go in, output and exit status come out.
#pragma once

#include <QByteArray>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

namespace Program {

/** Whether the programs run on the simulated phone. Else they run on a skeleton, and never on a port's own library: that
    one may have a real phone behind it. */
inline bool onSimulatedPhone()
{
    return KVQ_SIMULATED_PHONE && !qEnvironmentVariableIsSet("KVQ_ON_SKELETON");
}

/** The surroundings of a program that keeps its settings in @p folder. */
inline QProcessEnvironment environmentIn(const QString &folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder);
    if (!onSimulatedPhone())
        environment.insert(QStringLiteral("LD_LIBRARY_PATH"),
                           QFileInfo(QStringLiteral(KVQ_SKELETON)).absolutePath());
    return environment;
}

struct Output {
    int status;
    std::string text;
    std::string errors;
};

inline Output run(const QString &program, const QStringList &arguments, const QByteArray &input = {},
                  const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment())
{
    constexpr int patience = 120'000;
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    EXPECT_TRUE(process.waitForFinished(patience)) << program.toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << program.toStdString();
    return {process.exitCode(), process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

inline QStringList words(const char *line)
{
    return QString::fromLatin1(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace Program
