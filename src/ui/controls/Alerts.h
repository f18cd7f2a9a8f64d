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
    cancel, ///< what Escape chooses
    destructive
};

struct AlertAction {
    std::string title;
    AlertRole role = AlertRole::standard;
    std::function<void()> handler{}; ///< after the alert has gone
    QColor titleColor{};             ///< invalid: the theme's
};

/// A question or a message over everything else.
struct Alert {
    std::string title;
    std::string message{}; ///< empty: the title alone
    std::vector<AlertAction> actions;
    /// What stands between message and actions: a controller and the name of the view that
    /// shows it, with the controller as its property `controller`. Not owned; outlives the alert.
    QObject* content = nullptr;
    std::string contentView{};
};

/// One of the actions of the alert on show, for its view.
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
    QColor color{}; ///< of the title; invalid: the theme's

    [[nodiscard]] bool hasColor() const { return color.isValid(); }

    friend bool operator==(const AlertChoice&, const AlertChoice&) = default;
};

/// What a list of choices holds, for the tools of QML.
struct AlertChoiceList {
    Q_GADGET
    QML_ANONYMOUS
    QML_FOREIGN(QList<zelvo::ui::AlertChoice>)
    QML_SEQUENTIAL_CONTAINER(zelvo::ui::AlertChoice)
};

/// Alerts from anywhere in the program, one on show at a time, the others in the order of coming.
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

    /// An alert without an action gets "Ok".
    void show(Alert alert);
    /// One action "Ok".
    void showAlert(const std::string& title, const std::string& message);

    [[nodiscard]] bool isShowing() const { return !alerts.empty(); }

    [[nodiscard]] QString title() const;
    [[nodiscard]] QString message() const;
    [[nodiscard]] QList<AlertChoice> actions() const;
    /// What Return chooses: the first, but never one that destroys, then the last; -1: no alert.
    [[nodiscard]] int defaultAction() const;
    [[nodiscard]] QObject* content() const;
    [[nodiscard]] QString contentView() const;

    /// The user chose an action of the alert on show. Out of range: nothing happens.
    Q_INVOKABLE void choose(int index);

    /// Return.
    Q_INVOKABLE void accept() { choose(defaultAction()); }

    /// Escape: the cancelling action, else the only one; with several and none that cancels,
    /// nothing.
    Q_INVOKABLE void escape();

Q_SIGNALS:
    void changed();

private:
    std::deque<Alert> alerts;
};

} // namespace zelvo::ui
