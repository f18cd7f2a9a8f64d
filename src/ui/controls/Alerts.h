// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace zelvo::ui {

enum class AlertRole {
    standard,
    cancel, ///< chosen by Escape
    destructive
};

struct AlertAction {
    std::string title;
    AlertRole role = AlertRole::standard;
    std::function<void()> handler{}; ///< called after the alert has closed
    QColor titleColor{};             ///< invalid: the theme's colour
};

/// A question or a message on top of everything else.
struct Alert {
    std::string title;
    std::string message{}; ///< empty: only the title
    std::vector<AlertAction> actions;
    /// Shown between message and actions: a controller, and the name of a view that shows it (the
    /// view gets the controller as its property `controller`). Not owned; must outlive the alert.
    QObject* content = nullptr;
    std::string contentView{};
};

/// An action of the current alert, for its view.
struct AlertChoice {
    Q_GADGET
    QML_VALUE_TYPE(alertChoice)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(bool isCancelling MEMBER isCancelling)
    Q_PROPERTY(bool isDestructive MEMBER isDestructive)
    Q_PROPERTY(bool hasColor READ hasColor)
    Q_PROPERTY(QColor color MEMBER color)

public:
    QString title;
    bool isCancelling = false;
    bool isDestructive = false;
    QColor color{}; ///< of the title; invalid: the theme's colour

    [[nodiscard]] bool hasColor() const { return color.isValid(); }

    friend bool operator==(const AlertChoice&, const AlertChoice&) = default;
};

/// Makes the list type known to QML's tools.
struct AlertChoiceList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::AlertChoice>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::AlertChoice)
};

/// Shows alerts from anywhere in the program, one at a time; others wait in a queue.
class Alerts : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    Q_PROPERTY(bool isShowing READ isShowing NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(QList<zelvo::ui::AlertChoice> actions READ actions NOTIFY changed)
    Q_PROPERTY(int defaultAction READ defaultAction NOTIFY changed)
    Q_PROPERTY(QObject* content READ content NOTIFY changed)
    Q_PROPERTY(QString contentView READ contentView NOTIFY changed)

public:
    using QObject::QObject;

    /// An alert without actions gets "Ok".
    void show(Alert alert);
    /// Shows an alert with the action "Ok".
    void showAlert(const std::string& title, const std::string& message);

    [[nodiscard]] bool isShowing() const { return !alerts.empty(); }

    [[nodiscard]] QString title() const;
    [[nodiscard]] QString message() const;
    [[nodiscard]] QList<AlertChoice> actions() const;
    /// The action for Return: the first one that destroys nothing, else the last; -1: no alert.
    [[nodiscard]] int defaultAction() const;
    [[nodiscard]] QObject* content() const;
    [[nodiscard]] QString contentView() const;

    /// The user has chosen an action. Does nothing if the index is out of range.
    Q_INVOKABLE void choose(int index);

    /// For Return.
    Q_INVOKABLE void accept() { choose(defaultAction()); }

    /// For Escape: chooses the cancelling action, or the only one; otherwise does nothing.
    Q_INVOKABLE void escape();

Q_SIGNALS:
    void changed();

private:
    std::deque<Alert> alerts;
};

} // namespace zelvo::ui
