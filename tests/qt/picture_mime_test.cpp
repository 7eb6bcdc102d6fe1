// Pictures that the clipboard and drags carry.
#include "qt/drags.h"

#include "qt/desktop_fixture.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QUrl>

namespace chromalog::test {
namespace {

class PictureMime : public DesktopTest {
  protected:
    PictureMime() { image.fill(0xFF123456); }
    QByteArray png() {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        EXPECT_TRUE(image.save(&buffer, "PNG"));
        return bytes;
    }
    static std::uint32_t firstPixel(const PictureSource& source) {
        const ReadPicture read = source.read({});
        EXPECT_EQ(read.fault, "");
        return read.picture.empty() ? 0 : read.picture.at(0, 0);
    }
    QImage image{2, 1, QImage::Format_RGB32};
};

TEST_F(PictureMime, TextsAndColoursAreNoPictures) {
    QMimeData mime;
    mime.setText("blue");
    mime.setColorData(QColor(Qt::blue));
    EXPECT_FALSE(pasteboardOf(&mime).picture);
    EXPECT_FALSE(pasteboardOf(nullptr).picture);
}

TEST_F(PictureMime, AnEncodedPictureIsFetchedWhole) {
    QMimeData mime;
    mime.setData("image/png", png());
    const auto fetch = pasteboardOf(&mime).picture;
    ASSERT_TRUE(fetch);
    const PictureSource source = fetch();
    mime.clear(); // it is no longer needed
    EXPECT_EQ(source.name, "the pasted picture");
    EXPECT_EQ(firstPixel(source), 0xFF123456);
}

TEST_F(PictureMime, AnImageOfThisProcessIsTaken) {
    QMimeData mime;
    mime.setImageData(image);
    EXPECT_EQ(firstPixel(pasteboardOf(&mime).picture()), 0xFF123456);
}

/// Of a program that hangs: what it is asked for fails late. It may have told what it has before.
class HangingMime : public QMimeData {
  public:
    explicit HangingMime(QStringList told) : told_(std::move(told)) {}
    mutable int waits = 0;
    bool hasFormat(const QString& type) const override { return formats().contains(type); }
    QStringList formats() const override {
        if (told_.isEmpty()) wait();
        return told_;
    }

  protected:
    QVariant retrieveData(const QString&, QMetaType) const override {
        wait();
        return {};
    }

  private:
    void wait() const {
        ++waits;
        QTest::qSleep(2100);
    }
    QStringList told_;
};

TEST_F(PictureMime, AProgramThatHangsIsWaitedForOnce) {
    for (const QStringList& told :
         {QStringList(), QStringList{"application/x-color", "text/plain", "text/uri-list", "image/png"}}) {
        const HangingMime mime(told);
        EXPECT_FALSE(pasteboardOf(&mime).picture);
        EXPECT_EQ(mime.waits, 1) << told.join(' ').toStdString();
    }
}

TEST_F(PictureMime, ACopiedFileIsRead) {
    const QString path = QString::fromStdString(folder / "copied.png");
    ASSERT_TRUE(image.save(path));
    QMimeData mime;
    mime.setUrls({QUrl("https://example.com/no.png"), QUrl::fromLocalFile(path)});
    const PictureSource source = pasteboardOf(&mime).picture();
    EXPECT_EQ(source.name, "copied.png");
    EXPECT_EQ(firstPixel(source), 0xFF123456);
}

TEST_F(PictureMime, WhatHasGoneMeanwhileIsNoPicture) {
    auto mime = std::make_unique<QMimeData>();
    mime->setData("image/png", png());
    const auto fetch = pasteboardOf(mime.get()).picture;
    mime.reset();
    EXPECT_FALSE(fetch().read);
}

TEST_F(PictureMime, HostileDataIsRefused) {
    QMimeData mime;
    mime.setData("image/png", "GIF89a");
    EXPECT_EQ(pasteboardOf(&mime).picture().read({}).fault,
              "the pasted picture: no PNG, JPEG, TIFF or WebP picture");
    QMimeData empty;
    empty.setImageData(QImage());
    EXPECT_NE(pasteboardOf(&empty).picture().read({}).fault, "");
}

TEST_F(PictureMime, TheClipboardIsASource) {
    QtDesktop desktop(settings());
    auto* mime = new QMimeData; // the clipboard's from here on
    mime->setData("image/png", png());
    QGuiApplication::clipboard()->setMimeData(mime);
    const auto fetch = desktop.generalPasteboard().picture;
    ASSERT_TRUE(fetch);
    EXPECT_EQ(firstPixel(fetch()), 0xFF123456);
    QGuiApplication::clipboard()->clear();
}

} // namespace
} // namespace chromalog::test
