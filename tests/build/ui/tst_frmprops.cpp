#include "build/ui/frmProps.h"
#include "state/core/AppState.h"
#include "support/TestSupport.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

using namespace tessaro;

namespace {

// Settings that differ from every preset, so a test sees what a preset changed.
void setDistinctSettings()
{
    ToolSettings &t = app().tools;
    t.comPath = "/opt/q3/q3lcc";
    t.asmPath = "/opt/q3/q3asm";
    t.lnkPath = "/usr/bin/ld";
    t.params = "-O2";
    t.lnkparams = "-o mod.so";
    t.lrcPath = "/usr/bin/windres";
    t.lrcparams = "-v";
    t.sufparam = "-g";
    t.comLCC = false;
    t.objOBJ = false;
    t.useLnk = false;
}

template <typename T> T *child(QWidget *form, const char *name)
{
    T *widget = form->findChild<T *>(QLatin1String(name));
    if (!widget)
        qFatal("no control %s", name);
    return widget;
}

QString box(QWidget *form, const char *name)
{
    return child<QLineEdit>(form, name)->text();
}
bool on(QWidget *form, const char *name)
{
    return child<QRadioButton>(form, name)->isChecked();
}
void click(QWidget *form, const char *name)
{
    child<QAbstractButton>(form, name)->click();
}

} // namespace

class FrmPropsTest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init()
    {
        resetApp();
        setDistinctSettings();
    }

    void everyControlHasItsNameAndCaption()
    {
        frmProps form;
        QCOMPARE(form.objectName(), QString("frmProps"));
        QCOMPARE(form.windowTitle(), QString("Properties"));
        const std::pair<const char *, const char *> frames[] = {{"Frame2", "Object Type"},
                                                                {"Frame1", "Compiler Type"},
                                                                {"frmPath", "Paths"},
                                                                {"Frame3", "Use Linker?"}};
        for (const auto &[name, caption] : frames)
            QCOMPARE(child<QGroupBox>(&form, name)->title(), QString(caption));
        const std::pair<const char *, const char *> buttons[] = {{"cmdDOS", "DOS EXE Default"},
                                                                 {"cmdQ3", "Q3 Default"},
                                                                 {"cmdWin", "Win EXE Default"},
                                                                 {"cmdRBro", "Browse..."},
                                                                 {"cmdApply", "&Apply"},
                                                                 {"cmdCancel", "Cancel"},
                                                                 {"cmdOK", "OK"},
                                                                 {"cmdBrowse", "Browse..."},
                                                                 {"cmdWBro", "Browse..."},
                                                                 {"cmdEBro", "Browse..."}};
        for (const auto &[name, caption] : buttons)
            QCOMPARE(child<QPushButton>(&form, name)->text(), QString(caption));
        const std::pair<const char *, const char *> labels[] = {
            {"Label1", "Compiler"},
            {"Label2", "Q3ASM"},
            {"Label3", "Linker (Optional)"},
            {"Label4", "Compiler Params (Optional)"},
            {"Label5", "Linker Params (Optional)"},
            {"Label6", "RC Params (Optional)"},
            {"Label7", "RC (Optional)"},
            {"Label8", "Suffixive Compiler Params (Optional)"}};
        for (const auto &[name, caption] : labels)
            QCOMPARE(child<QLabel>(&form, name)->text(), QString(caption));
        const std::pair<const char *, const char *> options[] = {
            {"optO", ".o"},    {"optObj", ".obj"}, {"optOther", "Other"},
            {"optLCC", "LCC"}, {"optNo", "No"},    {"optYes", "Yes"}};
        for (const auto &[name, caption] : options)
            QCOMPARE(child<QRadioButton>(&form, name)->text(), QString(caption));
        // The option pairs stand in their frames.
        QCOMPARE(child<QRadioButton>(&form, "optO")->parentWidget()->objectName(),
                 QString("Frame2"));
        QCOMPARE(child<QRadioButton>(&form, "optLCC")->parentWidget()->objectName(),
                 QString("Frame1"));
        QCOMPARE(child<QRadioButton>(&form, "optYes")->parentWidget()->objectName(),
                 QString("Frame3"));
        for (const char *name : {"txtSuf", "txtRC", "txtRCParams", "txtlparam", "txtftppath",
                                 "txtWeb", "txtEmail", "txtOpts"})
            QVERIFY(child<QLineEdit>(&form, name));
        QVERIFY(child<QLineEdit>(&form, "txtftppath")->parentWidget()->objectName() == "frmPath");
    }

    void loadFillsTheBoxesFromTheSettings()
    {
        frmProps form;
        QCOMPARE(box(&form, "txtftppath"), QString("/opt/q3/q3lcc"));
        QCOMPARE(box(&form, "txtWeb"), QString("/opt/q3/q3asm"));
        QCOMPARE(box(&form, "txtEmail"), QString("/usr/bin/ld"));
        QCOMPARE(box(&form, "txtOpts"), QString("-O2"));
        QCOMPARE(box(&form, "txtlparam"), QString("-o mod.so"));
        QCOMPARE(box(&form, "txtRC"), QString("/usr/bin/windres"));
        QCOMPARE(box(&form, "txtRCParams"), QString("-v"));
        QCOMPARE(box(&form, "txtSuf"), QString("-g"));
    }

    void loadSetsEachOptionPairFromItsSwitch_data()
    {
        QTest::addColumn<bool>("comLCC");
        QTest::addColumn<bool>("objOBJ");
        QTest::addColumn<bool>("useLnk");
        for (int bits = 0; bits < 8; ++bits)
            QTest::addRow("switches %d", bits)
                << bool(bits & 1) << bool(bits & 2) << bool(bits & 4);
    }
    void loadSetsEachOptionPairFromItsSwitch()
    {
        QFETCH(bool, comLCC);
        QFETCH(bool, objOBJ);
        QFETCH(bool, useLnk);
        app().tools.comLCC = comLCC;
        app().tools.objOBJ = objOBJ;
        app().tools.useLnk = useLnk;
        frmProps form;
        QCOMPARE(on(&form, "optLCC"), comLCC);
        QCOMPARE(on(&form, "optOther"), !comLCC);
        QCOMPARE(on(&form, "optObj"), objOBJ);
        QCOMPARE(on(&form, "optO"), !objOBJ);
        QCOMPARE(on(&form, "optYes"), useLnk);
        QCOMPARE(on(&form, "optNo"), !useLnk);
    }

    void clickingAnOptionSetsItOnAndItsPartnerOff()
    {
        frmProps form;
        const std::pair<const char *, const char *> pairs[] = {
            {"optLCC", "optOther"}, {"optObj", "optO"}, {"optYes", "optNo"}};
        for (const auto &[a, b] : pairs) {
            click(&form, a);
            QVERIFY(on(&form, a));
            QVERIFY(!on(&form, b));
            // Clicking the one that is on keeps it on.
            click(&form, a);
            QVERIFY(on(&form, a));
            QVERIFY(!on(&form, b));
            click(&form, b);
            QVERIFY(on(&form, b));
            QVERIFY(!on(&form, a));
        }
        // The pairs are independent of each other.
        click(&form, "optLCC");
        click(&form, "optO");
        click(&form, "optNo");
        QVERIFY(on(&form, "optLCC") && on(&form, "optO") && on(&form, "optNo"));
    }

    void applyCopiesEveryBoxAndSwitchAndStaysOpen()
    {
        frmProps form;
        form.show();
        child<QLineEdit>(&form, "txtftppath")->setText("c1");
        child<QLineEdit>(&form, "txtWeb")->setText("a1");
        child<QLineEdit>(&form, "txtEmail")->setText("l1");
        child<QLineEdit>(&form, "txtOpts")->setText("p1");
        child<QLineEdit>(&form, "txtlparam")->setText("lp1");
        child<QLineEdit>(&form, "txtRC")->setText("r1");
        child<QLineEdit>(&form, "txtRCParams")->setText("rp1");
        child<QLineEdit>(&form, "txtSuf")->setText("s1");
        click(&form, "optLCC");
        click(&form, "optObj");
        click(&form, "optYes");
        click(&form, "cmdApply");
        const ToolSettings &t = app().tools;
        QCOMPARE(t.comPath, QString("c1"));
        QCOMPARE(t.asmPath, QString("a1"));
        QCOMPARE(t.lnkPath, QString("l1"));
        QCOMPARE(t.params, QString("p1"));
        QCOMPARE(t.lnkparams, QString("lp1"));
        QCOMPARE(t.lrcPath, QString("r1"));
        QCOMPARE(t.lrcparams, QString("rp1"));
        QCOMPARE(t.sufparam, QString("s1"));
        QVERIFY(t.comLCC && t.objOBJ && t.useLnk);
        QVERIFY(form.isVisible());

        click(&form, "optOther");
        click(&form, "optO");
        click(&form, "optNo");
        click(&form, "cmdApply");
        QVERIFY(!t.comLCC && !t.objOBJ && !t.useLnk);
    }

    void okAppliesAndClosesTheWindow()
    {
        QPointer<frmProps> form = new frmProps;
        form->show();
        child<QLineEdit>(form, "txtWeb")->setText("/usr/local/bin/q3asm");
        click(form, "optYes");
        click(form, "cmdOK");
        QCOMPARE(app().tools.asmPath, QString("/usr/local/bin/q3asm"));
        QVERIFY(app().tools.useLnk);
        QTRY_VERIFY(form.isNull());
    }

    void cancelClosesWithoutCopyingAnything()
    {
        const ToolSettings before = app().tools;
        QPointer<frmProps> form = new frmProps;
        form->show();
        child<QLineEdit>(form, "txtftppath")->setText("changed");
        click(form, "optLCC");
        click(form, "cmdCancel");
        QTRY_VERIFY(form.isNull());
        QCOMPARE(app().tools.comPath, before.comPath);
        QCOMPARE(app().tools.comLCC, before.comLCC);
    }

    void presetsFillSevenBoxesWithTheirValues_data()
    {
        QTest::addColumn<QString>("preset");
        QTest::addColumn<QStringList>(
            "values"); // compiler, params, asm, linker, lparams, rc, rcparams
        QTest::newRow("DOS") << "cmdDOS"
                             << QStringList{"lcc.exe", "", "", "lcclnk.exe", "", "", ""};
        QTest::newRow("Q3") << "cmdQ3" << QStringList{"lcc.exe", "", "q3asm.exe", "", "", "", ""};
        QTest::newRow("Win") << "cmdWin"
                             << QStringList{"lcc.exe", "", "", "lcclnk.exe", "-subsystem windows",
                                            "lrc.exe", ""};
    }
    void presetsFillSevenBoxesWithTheirValues()
    {
        QFETCH(QString, preset);
        QFETCH(QStringList, values);
        const ToolSettings before = app().tools;
        frmProps form;
        click(&form, preset.toLatin1().constData());
        const char *boxes[] = {"txtftppath", "txtOpts", "txtWeb",     "txtEmail",
                               "txtlparam",  "txtRC",   "txtRCParams"};
        for (int i = 0; i < 7; ++i)
            QCOMPARE(box(&form, boxes[i]), values.at(i));
        // The suffix box and the option buttons stay; no setting changes yet.
        QCOMPARE(box(&form, "txtSuf"), QString("-g"));
        QVERIFY(on(&form, "optOther") && on(&form, "optO") && on(&form, "optNo"));
        QCOMPARE(app().tools.comPath, before.comPath);
        QCOMPARE(app().tools.asmPath, before.asmPath);
        QCOMPARE(app().tools.lnkPath, before.lnkPath);
        QCOMPARE(app().tools.lrcPath, before.lrcPath);
    }

    void aPresetThenCancelLeavesEverySettingUnchanged()
    {
        for (const char *preset : {"cmdDOS", "cmdQ3", "cmdWin"}) {
            const ToolSettings before = app().tools;
            QPointer<frmProps> form = new frmProps;
            form->show();
            click(form, preset);
            click(form, "cmdCancel");
            QTRY_VERIFY(form.isNull());
            for (const char *key :
                 {"comPath", "asmPath", "lnkPath", "params", "lnkparams", "lrcPath", "lrcparams",
                  "sufparam", "comLCC", "objOBJ", "useLnk"})
                QCOMPARE(app().tools.value(key), before.value(key));
        }
    }

    void q3DefaultThenOkEmptiesLinkerAndResourceBoxesOnly()
    {
        QPointer<frmProps> form = new frmProps;
        form->show();
        click(form, "cmdQ3");
        click(form, "cmdOK");
        QTRY_VERIFY(form.isNull());
        const ToolSettings &t = app().tools;
        QCOMPARE(t.comPath, QString("lcc.exe"));
        QCOMPARE(t.asmPath, QString("q3asm.exe"));
        QCOMPARE(t.params, QString());
        QCOMPARE(t.lnkPath, QString());
        QCOMPARE(t.lnkparams, QString());
        QCOMPARE(t.lrcPath, QString());
        QCOMPARE(t.lrcparams, QString());
        QCOMPARE(t.sufparam, QString("-g"));
        QVERIFY(!t.comLCC && !t.objOBJ && !t.useLnk);
    }

    void browseButtonsAskWithTheirTitlesAndFillTheirBoxes_data()
    {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("target");
        QTest::newRow("compiler") << "cmdBrowse"
                                  << "Browse for Compiler"
                                  << "txtftppath";
        QTest::newRow("assembler") << "cmdWBro"
                                   << "Browse for Q3ASM"
                                   << "txtWeb";
        QTest::newRow("linker") << "cmdEBro"
                                << "Browse for Linker"
                                << "txtEmail";
        QTest::newRow("resources") << "cmdRBro"
                                   << "Browse for LRC"
                                   << "txtRC";
    }
    void browseButtonsAskWithTheirTitlesAndFillTheirBoxes()
    {
        QFETCH(QString, button);
        QFETCH(QString, title);
        QFETCH(QString, target);
        test::ScriptedCommonDialog dialog;
        dialog.answers << "/opt/my tools/picked";
        frmProps form;
        click(&form, button.toLatin1().constData());
        QCOMPARE(dialog.requests.size(), 1);
        const FileDialogRequest &request = dialog.requests.first();
        QCOMPARE(request.kind, FileDialogRequest::Open);
        QCOMPARE(request.title, title);
        QCOMPARE(request.filter, QString("Executables (*)|*"));
        QVERIFY(!request.cancelError);
        QCOMPARE(box(&form, target.toLatin1().constData()), QString("/opt/my tools/picked"));
        // Only the box; the setting waits for Apply.
        QVERIFY(app().tools.comPath == "/opt/q3/q3lcc");
    }

    void cancellingABrowseLeavesItsBoxUnchanged()
    {
        test::ScriptedCommonDialog dialog;
        dialog.answers << ""
                       << ""
                       << ""
                       << "";
        frmProps form;
        for (const char *button : {"cmdBrowse", "cmdWBro", "cmdEBro", "cmdRBro"})
            click(&form, button);
        QCOMPARE(dialog.requests.size(), 4);
        QCOMPARE(box(&form, "txtftppath"), QString("/opt/q3/q3lcc"));
        QCOMPARE(box(&form, "txtWeb"), QString("/opt/q3/q3asm"));
        QCOMPARE(box(&form, "txtEmail"), QString("/usr/bin/ld"));
        QCOMPARE(box(&form, "txtRC"), QString("/usr/bin/windres"));
    }

    void theWindowIsNotModal()
    {
        frmProps form;
        form.show();
        QVERIFY(!form.isModal());
        QCOMPARE(form.windowModality(), Qt::NonModal);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }
};

TESSARO_TEST_MAIN(FrmPropsTest)
#include "tst_frmprops.moc"
