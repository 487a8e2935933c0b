#include <gtest/gtest.h>
#include <vector>

#include "slnk/slnk.h"

namespace {

std::vector<const void*> nodes_of(const slnk& head)
{
    std::vector<const void*> nodes;
    for (const slnk* p = slnk_next(&head); p != nullptr; p = slnk_next(p))
        nodes.push_back(p);
    return nodes;
}

using nodes = std::vector<const void*>;

} // namespace

TEST(Slnk, OrderOfLinkingAndUnlinking)
{
    slnk head, a{}, b{}, c{}, d{};
    slnk_init(&head);
    EXPECT_EQ(slnk_remove_next(&head), nullptr);
    EXPECT_EQ(slnk_add(&head, &a), &a);
    slnk_add(&head, &b);
    slnk_insert(&head, &c);
    slnk_insert(&a, &d);
    EXPECT_EQ(nodes_of(head), (nodes{&c, &a, &d, &b}));

    EXPECT_EQ(slnk_remove(&head, &a), &a);
    EXPECT_EQ(slnk_next(&a), &d) << "a walk that stands on a removed node must get on";
    EXPECT_EQ(slnk_remove(&head, &a), &a);
    EXPECT_EQ(nodes_of(head), (nodes{&c, &d, &b}));
    EXPECT_EQ(slnk_remove_next(&c), &d);
    EXPECT_EQ(slnk_remove_next(&head), &c);
    EXPECT_EQ(slnk_remove(&head, &b), &b);
    EXPECT_EQ(slnk_next(&head), nullptr);
}

// A flat image whose links lie in both directions is moved to another place.
TEST(Slnk, SerializedImageCanMove)
{
    struct image {
        slnk head;
        struct {
            slnk lnk;
            int value;
        } rec[3];
    };
    image one{};
    for (const int i : {1, 0, 2}) {
        one.rec[i].value = i;
        slnk_add(&one.head, &one.rec[i].lnk);
    }
    slnk_serialize(1, &one.head);
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(one.head.p_next) * 4,
              static_cast<std::intptr_t>(offsetof(image, rec[1]) - offsetof(image, head)));
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(one.rec[1].lnk.p_next) * 4,
              -static_cast<std::intptr_t>(sizeof one.rec[0]));
    EXPECT_EQ(one.rec[2].lnk.p_next, nullptr);

    image two = one;
    one = {};
    slnk_serialize(0, &two.head);
    EXPECT_EQ(nodes_of(two.head), (nodes{&two.rec[1], &two.rec[0], &two.rec[2]}));

    slnk empty{};
    slnk_serialize(1, &empty);
    slnk_serialize(0, &empty);
    EXPECT_EQ(empty.p_next, nullptr);
}
