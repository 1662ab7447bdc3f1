// Picking a picture for the person's photo.
#include <QSignalSpy>
#include <QTest>

#include "pictures/PictureReading.hpp"
#include "shell/PhotoModel.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class PhotoChooser : public ViewTest {
 protected:
  PhotoChooser() { serveTheDay(); }

  void showChooser() {
    show("Shell/PhotoChooser", {{"photo", QVariant::fromValue(photo_)}}, kSizes.front());
  }
  void open() {
    ASSERT_TRUE(QMetaObject::invokeMethod(chooser(), "open"));
    settle();
  }
  QObject* chooser() {
    const auto all = window()->findChildren<QObject*>();
    const auto found = std::ranges::find_if(all, [](const QObject* each) {
      return QByteArray(each->metaObject()->className()).startsWith("PhotoChooser_");
    });
    return found == all.end() ? nullptr : *found;
  }
  QObject* dialog() {
    const auto all = window()->findChildren<QObject*>();
    const auto found = std::ranges::find_if(
        all, [](const QObject* each) { return each->inherits("QQuickFileDialog"); });
    return found == all.end() ? nullptr : *found;
  }
  bool asks() { return dialog() && dialog()->property("visible").toBool(); }

  PhotoModel* photo_ = windowModels()["photo"].value<PhotoModel*>();
};

TEST_F(PhotoChooser, IsLoadedWhenItIsFirstWanted) {
  showChooser();
  ASSERT_TRUE(chooser());
  EXPECT_FALSE(dialog());
  open();
  ASSERT_TRUE(QTest::qWaitFor([this] { return asks(); }));
  EXPECT_EQ(dialog()->property("title"), "Pick a photo for your profile.");
  EXPECT_EQ(dialog()->property("nameFilters").toStringList(), PhotoModel::filters());
}

TEST_F(PhotoChooser, OffersThePicturesThatCanBeRead) {
  const QString plain = "Photos (*.jpg *.JPG *.jpeg *.JPEG *.png *.PNG *.webp *.WEBP";
  const QString heic = " *.heic *.HEIC *.heif *.HEIF";
  EXPECT_EQ(PhotoModel::filters(), QStringList{plain + (readsHeic() ? heic : QString{}) + ")"});
}

TEST_F(PhotoChooser, HandsOnWhatIsPicked) {
  showChooser();
  open();
  ASSERT_TRUE(QTest::qWaitFor([this] { return asks(); }));
  const QUrl picked("file:///home/renny/a%20b.jpg");
  ASSERT_TRUE(QMetaObject::invokeMethod(dialog()->parent(), "chosen", Q_ARG(QUrl, picked)));
  settle();
  EXPECT_EQ(desk.photos.asked, std::vector<std::string>{"/home/renny/a b.jpg"});
}

TEST_F(PhotoChooser, ACancelledOneChangesNothing) {
  showChooser();
  open();
  ASSERT_TRUE(QTest::qWaitFor([this] { return asks(); }));
  ASSERT_TRUE(QMetaObject::invokeMethod(dialog(), "reject"));
  settle();
  EXPECT_FALSE(asks());
  EXPECT_TRUE(desk.photos.asked.empty());
}

TEST_F(PhotoChooser, AsksNoMoreOnceTheSessionHasEnded) {
  showChooser();
  open();
  ASSERT_TRUE(QTest::qWaitFor([this] { return asks(); }));
  store().signOut(true);
  settle();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !asks(); }));
  photo_->choose(QUrl("file:///home/renny/late.jpg"));
  settle();
  EXPECT_TRUE(desk.photos.asked.empty()) << "nobody is there to be seen by it";
}

TEST_F(PhotoChooser, TakesLocalFilesAlone) {
  showChooser();
  for (const char* url : {"https://files.example/me.jpg", "", "me.jpg", "data:image/png;base64,"}) {
    photo_->choose(QUrl(url));
  }
  settle();
  EXPECT_TRUE(desk.photos.asked.empty());
  EXPECT_FALSE(photo_->changing());
}

TEST_F(PhotoChooser, TellsWhileOneIsBeingChanged) {
  showChooser();
  const QSignalSpy changed(photo_, &PhotoModel::changingChanged);
  bool during = false;
  desk.photos.meanwhile = [&] { during = store().busy().contains("photo"); };
  photo_->choose(QUrl("file:///home/renny/no-picture.txt"));
  settle();
  EXPECT_TRUE(during);
  EXPECT_FALSE(photo_->changing());
  auto busy = store().busy();
  busy.insert("photo");
  store().busy.set(busy);
  settle();
  EXPECT_TRUE(photo_->changing());
  busy.erase("photo");
  store().busy.set(busy);
  settle();
  EXPECT_FALSE(photo_->changing());
  EXPECT_EQ(changed.count() % 2, 0);
}

}  // namespace
}  // namespace vellix
