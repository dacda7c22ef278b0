// SPDX-License-Identifier: LGPL-2.1-or-later
#pragma once

#include <QAbstractItemModelTester>
#include <QStringList>
#include <QTest>

/*! Runs a QAbstractItemModelTester over a model during its lifetime, and fails the test at its end if there were
    complaints.

    One complaint is left out: the tester expects no flags for the invalid index, and the models of this library
    return Qt::ItemIsEnabled. */
class ModelWatch
{
public:
    explicit ModelWatch(QAbstractItemModel *model)
        : m_tester(startListening(this, model),
                   QAbstractItemModelTester::FailureReportingMode::Warning)
    {
    }
    ~ModelWatch()
    {
        current() = m_outer;
        if (!m_outer)
            qInstallMessageHandler(previousHandler());
        if (!m_complaints.isEmpty())
            QTest::qFail(qPrintable(complaints()), __FILE__, __LINE__);
    }
    ModelWatch(const ModelWatch &) = delete;
    ModelWatch &operator=(const ModelWatch &) = delete;

    QString complaints() const { return m_complaints.join('\n'); }

private:
    static ModelWatch *&current()
    {
        static ModelWatch *watch = nullptr;
        return watch;
    }

    static QtMessageHandler &previousHandler()
    {
        static QtMessageHandler handler = nullptr;
        return handler;
    }

    // Called before the tester is constructed, since its constructor examines the model at once.
    static QAbstractItemModel *startListening(ModelWatch *watch, QAbstractItemModel *model)
    {
        watch->m_outer = current();
        current() = watch;
        if (!watch->m_outer)
            previousHandler() = qInstallMessageHandler(listen);
        return model;
    }

    static void listen(QtMsgType type, const QMessageLogContext &context, const QString &text)
    {
        if (qstrcmp(context.category, "qt.modeltest") != 0)
            previousHandler()(type, context, text);
        else if (type != QtDebugMsg && !text.contains("ItemIsDropEnabled"))
            current()->m_complaints.append(text);
    }

    ModelWatch *m_outer = nullptr;
    QStringList m_complaints;
    QAbstractItemModelTester m_tester;
};
