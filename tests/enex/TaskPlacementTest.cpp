// SPDX-License-Identifier: MIT
#include "enex/TaskPlacement.h"

#include "support/RandomText.h"

#include <gtest/gtest.h>

namespace {

EnexTask task(const QByteArray& title, const QByteArray& group = {}, const QByteArray& weight = {})
{
    EnexTask made;
    made.title = title;
    made.group = group;
    made.sortWeight = weight;
    return made;
}

QByteArray group(const QByteArray& name)
{
    return "<div style=\"--en-task-group:true;--en-id:" + name + "\"><b>p</b></div>";
}

QByteArray line(const QByteArray& title)
{
    return "<div><en-todo checked=\"false\"/>" + title + "</div>";
}

QByteArray placed(const QByteArray& body, const std::vector<EnexTask>& tasks)
{
    return bodyWithTasks(body, tasks, TaskBox::Tag);
}

TEST(TaskPlacementTest, TasksOfAGroupFollowTheirWeights)
{
    EXPECT_EQ(placed("<en-note>" + group("G") + "</en-note>",
                     {task("3", "G", "W"), task("1", "G", "C"), task("2", "G", "CQ")}),
              "<en-note>" + line("1") + line("2") + line("3") + "</en-note>");
}

TEST(TaskPlacementTest, TasksOfAGroupKeepTheirOrderWhereOneHasNoWeight)
{
    EXPECT_EQ(placed("<en-note>" + group("G") + "</en-note>",
                     {task("3", "G", "W"), task("1", "G", "C"), task("2", "G")}),
              "<en-note>" + line("3") + line("1") + line("2") + "</en-note>");
    EXPECT_EQ(
        placed("<en-note>" + group("G") + "</en-note>", {task("2", "G", "A"), task("1", "G", "A")}),
        "<en-note>" + line("2") + line("1") + "</en-note>");
}

TEST(TaskPlacementTest, EachGroupGetsItsOwnTasks)
{
    EXPECT_EQ(placed("<en-note>" + group("A") + "x" + group("B") + "</en-note>",
                     {task("b", "B"), task("a", "A"), task("c", "B")}),
              "<en-note>" + line("a") + "x" + line("b") + line("c") + "</en-note>");
}

TEST(TaskPlacementTest, AGroupWithoutTasksKeepsItsPlaceholder)
{
    const QByteArray body = "<en-note>" + group("A") + group("B") + "</en-note>";
    EXPECT_EQ(placed(body, {}), body);
    EXPECT_EQ(placed(body, {task("b", "B")}), "<en-note>" + group("A") + line("b") + "</en-note>");
}

TEST(TaskPlacementTest, TasksWithoutAGroupInTheBodyStandAtItsEnd)
{
    EXPECT_EQ(placed("<en-note>x</en-note>\n", {task("1"), task("2", "nowhere"), task("3")}),
              "<en-note>x" + line("1") + line("3") + line("2") + "</en-note>\n");
    EXPECT_EQ(
        placed("<en-note>" + group("A") + "x</en-note>", {task("1", "nowhere"), task("a", "A")}),
        "<en-note>" + line("a") + "x" + line("1") + "</en-note>");
}

TEST(TaskPlacementTest, OfGroupsWithOneNameTheFirstGetsTheTasks)
{
    EXPECT_EQ(placed("<en-note>" + group("A") + group("A") + "</en-note>",
                     {task("a", "A"), task("a", "A")}),
              "<en-note>" + line("a") + line("a") + group("A") + "</en-note>");
}

TEST(TaskPlacementTest, AGroupInsideAGroupLosesNoTask)
{
    EXPECT_EQ(placed("<en-note><div style='--en-task-group:true;--en-id:A'>" + group("B") +
                         "</div></en-note>",
                     {task("a", "A"), task("b", "B")}),
              "<en-note>" + line("a") + line("b") + "</en-note>");
}

TEST(TaskPlacementTest, AGroupMayBeAnyElementAndEmpty)
{
    EXPECT_EQ(placed("<en-note><p style=' --en-task-group : true ; --en-id : A '/>x</en-note>",
                     {task("a", "A")}),
              "<en-note>" + line("a") + "x</en-note>");
    const QByteArray off = "<en-note><div style='--en-task-group:false;--en-id:A'/>x</en-note>";
    EXPECT_EQ(placed(off, {task("a", "A")}), off.chopped(10) + line("a") + "</en-note>");
}

TEST(TaskPlacementTest, AGroupInACommentIsNone)
{
    EXPECT_EQ(placed("<en-note><!--" + group("A") + "</en-note>--></en-note>", {task("a", "A")}),
              "<en-note><!--" + group("A") + "</en-note>-->" + line("a") + "</en-note>");
}

TEST(TaskPlacementTest, ABodyInShortFormIsOpened)
{
    EXPECT_EQ(placed("<?xml?><en-note style=\"a:b\"/>\n", {task("a")}),
              "<?xml?><en-note style=\"a:b\">" + line("a") + "</en-note>\n");
    EXPECT_EQ(placed("<en-note />", {task("a")}), "<en-note >" + line("a") + "</en-note>");
}

TEST(TaskPlacementTest, AnEmptyBodyGetsAnElement)
{
    EXPECT_EQ(placed("", {task("a")}), "<en-note>" + line("a") + "</en-note>");
    EXPECT_EQ(placed("<?xml version=\"1.0\"?>\n", {task("a")}),
              "<?xml version=\"1.0\"?>\n<en-note>" + line("a") + "</en-note>");
}

TEST(TaskPlacementTest, ABodyWithAnotherRootTakesTasksInsideIt)
{
    EXPECT_EQ(placed("<div>x<b>y</b></div>", {task("a")}), "<div>x<b>y</b>" + line("a") + "</div>");
}

TEST(TaskPlacementTest, NothingOfAMalformedBodyGoes)
{
    const QByteArray open = "<div style=\"--en-task-group:true;--en-id:A\">";
    // The group's end is missing, so an outer element's would be taken for it.
    EXPECT_EQ(placed("<en-note><div>x" + open + "p</div>mine</en-note>", {task("a", "A")}),
              "<en-note><div>x" + line("a") + open + "p</div>mine</en-note>");
    EXPECT_EQ(placed("<en-note>x<br>" + group("A") + "y</en-note>", {task("a", "A"), task("b")}),
              "<en-note>x<br>" + line("a") + group("A") + "y" + line("b") + "</en-note>");
    // Nothing may land in a tag or a comment that nothing ends.
    EXPECT_EQ(placed("<en-note>x<a href=\"y", {task("a")}),
              "<en-note>x" + line("a") + "<a href=\"y");
    EXPECT_EQ(placed("<en-note>x<!-- y</en-note>", {task("a")}),
              "<en-note>x" + line("a") + "<!-- y</en-note>");
    EXPECT_EQ(placed("<en-note>x<div>y", {task("a")}), "<en-note>x<div>y" + line("a"));
    EXPECT_EQ(placed("x<en-note/>" + group("A") + "</b>", {task("a", "A"), task("b")}),
              "x<en-note/>" + line("a") + group("A") + "</b>" + line("b"));
    EXPECT_EQ(placed("</en-note><en-note>" + group("A"), {task("a", "A"), task("b")}),
              "</en-note><en-note>" + line("a") + line("b") + group("A"));
}

TEST(TaskPlacementTest, AClipGetsItsBoxesAsCharacters)
{
    EnexTask done = task("b");
    done.status = "completed";
    EXPECT_EQ(bodyWithTasks("<en-note/>", {task("a"), done}, TaskBox::Character),
              "<en-note><div>\u2610 a</div><div>\u2611\uFE0E b</div></en-note>");
}

TEST(TaskPlacementTest, ManyTasksAndGroupsTakeTimeInProportion)
{
    constexpr int count = 100'000;
    std::vector<EnexTask> tasks;
    QByteArray groups;
    for (int index = 0; index < count; ++index) {
        tasks.push_back(task("t", QByteArray::number(index)));
        groups += group(QByteArray::number(index));
    }
    const QByteArray body = placed("<en-note>" + groups + "</en-note>", tasks);
    EXPECT_EQ(body.count("<en-todo"), count);
    EXPECT_EQ(body.count("en-task-group"), 0);
    // The same group a hundred thousand times, and as many tasks in it.
    for (EnexTask& each : tasks)
        each.group = "0";
    EXPECT_EQ(
        placed("<en-note>" + group("0").repeated(count) + "</en-note>", tasks).count("<en-todo"),
        count);
    EXPECT_EQ(placed("<en-note>" + QByteArray("<div>").repeated(count) +
                         QByteArray("</div>").repeated(count) + "</en-note>",
                     tasks)
                  .count("<en-todo"),
              count);
}

// Whether the letters of a body stand in another, in their order.
bool holdsLettersOf(const QByteArray& body, const QByteArray& other)
{
    qsizetype position = 0;
    for (const char letter : other) {
        if (letter < 'A' || letter > 'Z')
            continue;
        position = body.indexOf(letter, position) + 1;
        if (position == 0)
            return false;
    }
    return true;
}

TEST(TaskPlacementTest, WhateverTheBodyEveryTaskComesOnceAndNoTextOutsideGroupsGoes)
{
    const std::vector<QByteArray> parts = {"<div>",
                                           "</div>",
                                           "<b>",
                                           "</b>",
                                           "<br>",
                                           "<br/>",
                                           "<en-note>",
                                           "</en-note>",
                                           "<!--",
                                           "-->",
                                           "<![CDATA[",
                                           "]]>",
                                           "<a b=\"",
                                           "\">",
                                           "<",
                                           ">",
                                           "A",
                                           "B",
                                           "C",
                                           "D",
                                           "<?x ?>",
                                           "<p ",
                                           "/>",
                                           "'",
                                           "<i style=\"--en-task-group:true;--en-id:g\">",
                                           "</i>",
                                           "<i style=\"--en-task-group:true;--en-id:h\"/>"};
    test::RandomText random(8);
    const std::vector<EnexTask> tasks = {task("1", "g"), task("2", "g"), task("3", "h"), task("4")};
    for (int round = 0; round < 20'000; ++round) {
        QByteArray body;
        const int length = random.number(0, 25);
        for (int count = 0; count < length; ++count)
            body += parts[static_cast<std::size_t>(
                random.number(0, static_cast<int>(parts.size()) - 1))];
        const QByteArray result = placed(body, tasks);
        for (const char* title : {"1", "2", "3", "4"})
            ASSERT_EQ(result.count(line(title)), 1) << body.toStdString();
        // What a group holds is its placeholder.
        if (!body.contains("--en-id:g\">")) {
            ASSERT_TRUE(holdsLettersOf(result, body)) << body.toStdString();
        }
    }
}

TEST(EnexTaskTest, AMomentIsToldInItsZone)
{
    const auto text = [](const QByteArray& stamp, const QByteArray& option,
                         const QByteArray& zone) {
        return EnexTask::Moment{stamp, option, zone}.text().toStdString();
    };
    EXPECT_EQ(text("20220528T215959Z", "date_only", "Europe/Budapest"), "2022-05-28");
    EXPECT_EQ(text("20220529T035959Z", "date_only", "America/New_York"), "2022-05-28");
    EXPECT_EQ(text("20220528T215959Z", "date_time", "Europe/Budapest"), "2022-05-28 23:59");
    EXPECT_EQ(text("20220528T215959Z", "date_only", ""), "2022-05-28 21:59 UTC");
    EXPECT_EQ(text("20220528T215959Z", "", "Nowhere/AtAll"), "2022-05-28 21:59 UTC");
    EXPECT_EQ(text("20220528T215959Z", "", "../../../etc/passwd"), "2022-05-28 21:59 UTC");
    EXPECT_EQ(text("20220528T215959Z", "", "/etc/localtime"), "2022-05-28 21:59 UTC");
}

TEST(EnexTaskTest, NoDayAtAllIsNotTold)
{
    EXPECT_EQ((EnexTask::Moment{"2757600913T000000Z", {}, {}}.text().toStdString()), "");
    EXPECT_EQ((EnexTask::Moment{{}, "date_only", "UTC"}.text().toStdString()), "");
    EnexTask never = task("t");
    never.due.stamp = "2757600913T000000Z";
    EXPECT_EQ(never.text().toStdString(), "t");
}

TEST(EnexTaskTest, AStampInAnotherFormStaysAsItIs)
{
    for (const char* stamp : {"10101T000000Z", "20221340T000000Z", "20220101T250000Z", "2022-01-01",
                              "20220101T000000Z\n"})
        EXPECT_EQ((EnexTask::Moment{stamp, {}, {}}.text().toStdString()), stamp);
}

} // namespace
