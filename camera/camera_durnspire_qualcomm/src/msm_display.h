// Requests and records of the display driver and of its rotator; all fields have 32 bits.
#pragma once

#include <cstdint>

constexpr unsigned long MSMFB_OVERLAY_SET = 0xC1506D87;
constexpr unsigned long MSMFB_OVERLAY_UNSET = 0x40046D88;
constexpr unsigned long MSMFB_OVERLAY_PLAY = 0x40686D89;
constexpr unsigned long MSM_ROTATOR_START = 0xC0445201;
constexpr unsigned long MSM_ROTATOR_ROTATE = 0x40685202;
constexpr unsigned long MSM_ROTATOR_FINISH = 0x40045203;

constexpr std::uint32_t MDP_NEW_ID = UINT32_MAX;
constexpr std::uint32_t MDP_NO_TRANSPARENCY = UINT32_MAX;
constexpr std::uint32_t MDP_WRITE_BACK = 128; // flag: the picture goes to memory and not to the screen

struct mdp_image {
    std::uint32_t width, height, format;
};

struct mdp_rectangle {
    std::uint32_t x, y, width, height;
};

struct mdp_overlay {
    mdp_image src;
    mdp_rectangle src_rect;
    mdp_rectangle dst_rect;
    std::uint32_t z_order, is_foreground, alpha, transparency_mask, blend, flags, id;
    std::uint32_t rest[66];
};
static_assert(sizeof(mdp_overlay) == 0x150);

struct msmfb_data {
    std::uint32_t offset;
    std::int32_t memory_id;
    std::uint32_t rest[4];
};

struct msmfb_overlay_data {
    std::uint32_t id;
    msmfb_data src;
    std::uint32_t version;
    msmfb_data planes[2];
    msmfb_data dst;
};
static_assert(sizeof(msmfb_overlay_data) == 0x68);

struct msm_rotator_image {
    std::uint32_t session;
    mdp_image src, dst;
    mdp_rectangle src_rect;
    std::uint32_t dst_x, dst_y;
    std::uint32_t rotations;
    std::uint32_t enable;
    std::uint32_t rest[2];
};
static_assert(sizeof(msm_rotator_image) == 0x44);

struct msm_rotator_data {
    std::uint32_t session;
    msmfb_data src, dst;
    std::uint32_t version;
    msmfb_data planes[2];
};
static_assert(sizeof(msm_rotator_data) == 0x68);
