#pragma once

#include <QAbstractButton>

#include <functional>

// A push button that shows a picture drawn in code, down to a few pixels high.
class PictureButton : public QAbstractButton {
    Q_OBJECT
public:
    using Face = std::function<void(QPainter&, const QRectF&)>;
    PictureButton(Face face, const QString& accessibleName, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Face m_face;
};
