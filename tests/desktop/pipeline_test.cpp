// The pipeline as a salesperson uses it: the open deals with money and dates as they should
// look, a search as you type, a column sort, a new deal straight into the editor, one editor
// window per deal, Save that leaves the pipeline showing what was saved, and archive and delete
// that ask first.
#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

#include "app/editor_environment.h"
#include "app/host_window.h"
#include "contracts/names.h"
#include "data/demo_seed.h"
#include "pipeline/new_deal_dialog.h"
#include "pipeline/pipeline_model.h"
#include "pipeline/pipeline_pictures.h"
#include "pipeline/pipeline_window.h"

namespace {

using pelkor::desktop::PipelineModel;
using pelkor::desktop::PipelineWindow;

// The column's texts, top to bottom, of the rows fetched.
QStringList Column(const PipelineWindow& pipeline, int column) {
  QStringList texts;
  const PipelineModel* model = pipeline.Model();
  for (int row = 0; row < model->rowCount(); ++row) {
    texts << model->index(row, column).data().toString();
  }
  return texts;
}

// Answers the next message box (or dialog) with the button whose text holds `button`, and
// keeps what it said.
void AnswerNextBox(const QString& button, QString* said) {
  QTimer::singleShot(0, [button, said] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    QVERIFY(box != nullptr);
    if (said != nullptr) *said = box->text();
    for (QAbstractButton* candidate : box->buttons()) {
      if (candidate->text().remove('&').contains(button)) return candidate->click();
    }
    QFAIL("no such button");
  });
}

struct Pipeline {
  QTemporaryDir folder;
  std::string dbPath = folder.filePath("team.db").toStdString();
  std::unique_ptr<pelkor::desktop::EditorEnvironment> environment;
  std::unique_ptr<PipelineWindow> window;

  // A pipeline not shown is the one behind a deal opened at start-up (--ibo).
  explicit Pipeline(bool shown = true) {
    pelkor::SeedDemoData(*pelkor::OpenIboStore(dbPath));
    environment =
        std::make_unique<pelkor::desktop::EditorEnvironment>(pelkor::desktop::EnvironmentOptions{
            dbPath, folder.filePath("trace.log").toStdString(),
            pelkor::StoreOpening::kCreateIfMissing, folder.filePath("state").toStdString()});
    // Nobody answers the editor's own boxes here: they take their safe answer.
    environment->Platform().SetMessageHook([](const pelkor::desktop::QtPlatform::Message& m) {
      return m.buttons == pelkedit::MsgButtons::kOk ? pelkedit::MsgAnswer::kOk
                                                    : pelkedit::MsgAnswer::kCancel;
    });
    window = std::make_unique<PipelineWindow>(*environment);
    window->Model()->SetToday(QDate(2026, 10, 1));
    if (shown) window->show();
  }
  ~Pipeline() {
    window.reset();
    environment.reset();
  }
};

}  // namespace

class PipelineTest : public QObject {
  Q_OBJECT

 private slots:
  void theOpenDealsShowAsTheyShould() {
    Pipeline p;
    // The demo's four open deals, by company.
    QCOMPARE(Column(*p.window, PipelineModel::kCompany),
             (QStringList{"Bluewater Marine Supply", "Cascade Valley Medical Group",
                          "Harbor Freight Logistics", "Meridian Aerospace Components"}));
    const PipelineModel* model = p.window->Model();
    const int harbor = model->RowOf(1001);
    const QModelIndex value = model->index(harbor, PipelineModel::kValue);
    QCOMPARE(value.data().toString(), QString("72,980.00"));
    QCOMPARE(value.data(Qt::TextAlignmentRole).toInt(), int(Qt::AlignRight | Qt::AlignVCenter));
    // Expected by 30 September, open on 1 October: overdue, and said so.
    const QModelIndex wwih = model->index(harbor, PipelineModel::kWwihDate);
    QVERIFY(wwih.data(Qt::ToolTipRole).toString().contains("overdue"));
    QVERIFY(wwih.data(Qt::FontRole).value<QFont>().bold());
    const QModelIndex later = model->index(model->RowOf(1007), PipelineModel::kWwihDate);
    QVERIFY(!later.data(Qt::ToolTipRole).toString().contains("overdue"));
    QCOMPARE(model->index(harbor, PipelineModel::kPriority).data().toString(), QString("2"));

    p.window->Search()->setText("WHITFIELD");
    QTRY_COMPARE(Column(*p.window, PipelineModel::kCompany),
                 QStringList{"Harbor Freight Logistics"});
    p.window->Search()->clear();
    QTRY_COMPARE(model->rowCount(), 4);

    QHeaderView* header = p.window->Table()->horizontalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(PipelineModel::kValue) + 5, 5));
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(PipelineModel::kValue) + 5, 5));
    QCOMPARE(Column(*p.window, PipelineModel::kValue),
             (QStringList{"82,500.00", "72,980.00", "27,620.00", "12,600.00"}));

    p.window->ShowArchive(true);
    QCOMPARE(Column(*p.window, PipelineModel::kCompany), QStringList{"Old Mill Hardware"});
  }

  void aDealOpenedAtStartUpShowsBeforeThePipelineIsBuilt() {
    Pipeline p(false);
    p.window->OpenDeal(1001, false);
    pelkor::desktop::HostWindow* editor = p.window->Editor();
    QVERIFY(editor != nullptr);
    QVERIFY(editor->isVisible());
    // The deal's window came up without the pipeline's list, pictures or menus.
    QVERIFY(p.window->findChild<QTableView*>() == nullptr);
    QVERIFY(p.window->menuBar()->actions().isEmpty());
    // Asked for from the editor, the pipeline comes whole, its deals listed.
    editor->ChooseIbo();
    QVERIFY(p.window->isVisible());
    QCOMPARE(Column(*p.window, PipelineModel::kCompany).size(), 4);
    QVERIFY(p.window->Table()->isVisible());
    QVERIFY(!p.window->menuBar()->actions().isEmpty());
  }

  void aNewDealOpensInTheEditorAndASaveShowsInThePipeline() {
    Pipeline p;
    QTimer::singleShot(0, [] {
      auto* dialog =
          qobject_cast<pelkor::desktop::NewDealDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      auto* ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
      QVERIFY(!ok->isEnabled());  // a deal is with a company
      QTest::keyClicks(dialog->Company(), "Acme Robotics");
      QVERIFY(ok->isEnabled());
      ok->click();
    });
    p.window->NewDeal();
    pelkor::desktop::HostWindow* editor = p.window->Editor();
    QVERIFY(editor != nullptr);
    QVERIFY(editor->isVisible());
    const std::int32_t id = editor->IboId();
    QVERIFY(id > 9001);
    QVERIFY(editor->windowTitle().contains("Acme Robotics"));
    // A second open of the same deal raises the window already open; another deal gets a
    // window of its own beside it.
    p.window->OpenDeal(id, false);
    QCOMPARE(p.window->Editor(), editor);
    p.window->OpenDeal(1001, false);
    QPointer<pelkor::desktop::HostWindow> harbor(p.window->Editor());
    QVERIFY(harbor != editor);
    QCOMPARE(harbor->IboId(), 1001);
    QVERIFY(editor->isVisible());
    QCOMPARE(p.window->EditorOf(id), editor);
    harbor->close();
    QTRY_VERIFY(harbor.isNull());
    QCOMPARE(editor->IboId(), id);

    editor->findChild<QRadioButton*>("optWihLow")->click();
    auto* save =
        qobject_cast<QPushButton*>(editor->Binding()->WidgetFor(pelkedit::widget::cmdSave));
    QVERIFY(save != nullptr);
    QPointer<pelkor::desktop::HostWindow> closing(editor);
    save->click();
    // Save closes the editor's window only.
    QTRY_VERIFY(closing.isNull());
    QVERIFY(p.window->isVisible());
    const int row = p.window->Model()->RowOf(id);
    QVERIFY(row >= 0);
    QCOMPARE(p.window->Model()->Summary(row)->wih, 0);
    QCOMPARE(p.window->Model()->Summary(row)->company, std::string("Acme Robotics"));
  }

  void archiveAndDeleteAskFirst() {
    Pipeline p;
    const auto matrixHas = [&p](std::int32_t id) {
      const std::vector<pelkor::IboSummary>& deals = p.window->Matrix()->Deals();
      return std::any_of(deals.begin(), deals.end(),
                         [id](const pelkor::IboSummary& deal) { return deal.id == id; });
    };
    // A search narrows the list, not the matrix of every open deal.
    p.window->Search()->setText("Cascade");
    p.window->ApplyFilters();
    QCOMPARE(p.window->Model()->rowCount(), 1);
    QCOMPARE(p.window->Matrix()->Deals().size(), std::size_t{4});
    p.window->SelectDeal(1002);
    QString asked;
    AnswerNextBox("No", &asked);
    p.window->ArchiveSelected();
    QVERIFY(asked.contains("IBO#1002 (Cascade Valley Medical Group)"));
    QVERIFY(p.window->Model()->RowOf(1002) >= 0);
    AnswerNextBox("Yes", nullptr);
    p.window->ArchiveSelected();
    QCOMPARE(p.window->Model()->RowOf(1002), -1);
    QVERIFY(!matrixHas(1002));

    p.window->ShowArchive(true);
    p.window->SelectDeal(1002);
    p.window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(p.window.get()));
    p.window->Table()->setFocus();
    AnswerNextBox("No", &asked);
    QTest::keyClick(p.window->Table(), Qt::Key_Delete);
    QVERIFY(asked.contains("Delete IBO#1002 (Cascade Valley Medical Group) for good?"));
    QVERIFY(p.window->Model()->RowOf(1002) >= 0);
    p.window->RestoreSelected();
    p.window->ShowArchive(false);
    QVERIFY(p.window->Model()->RowOf(1002) >= 0);
    QVERIFY(matrixHas(1002));
  }
};

QTEST_MAIN(PipelineTest)
#include "pipeline_test.moc"
