// Tables, life cycle, and what is given without a driver.
#include <gtest/gtest.h>

#include "cio_v2/cio.h"
#include "f_camera/f_camera.h"
#include "unit/camera/camera_desk.h"
#include "unit/line_spy.h"

using list = std::vector<std::string>;

TEST(Camconf, RecordsAreFoundByTheirFlags)
{
    const camera_desk desk;
    EXPECT_EQ(camconf_cam_prd_spec_get_first(2, CAMCONF_MODULE)->id, 2u);
    EXPECT_EQ(camconf_cam_prd_spec_get_first(1, CAMCONF_LOADED | CAMCONF_PROBE)->id, 1u)
        << "once more without the probe";
    EXPECT_EQ(camconf_cam_prd_spec_get_first(1, CAMCONF_MODULE), nullptr);
    EXPECT_EQ(camconf_cam_prd_spec_get_first(3, 0), nullptr);
    EXPECT_EQ(std::tuple(camconf_get_snapshot_rotation(1), camconf_get_device_number(1),
                         camconf_get_i2c_address(1)),
              std::tuple(7, 11, 0x20));
    EXPECT_STREQ(camconf_get_i2c_user_interface(1), "/dev/i2c-4");
    // The second camera's module isn't loaded
    EXPECT_EQ(std::tuple(camconf_get_snapshot_rotation(2), camconf_get_device_number(2),
                         camconf_get_snapshot_yuv_format(2), camconf_adjust_rotation(2, 0)),
              std::tuple(-1, 0, 4, -1));
    camconf_prd_spec* table;
    std::uint32_t count;
    ASSERT_EQ(camconf_get_prd_spec(&table, &count), 1);
    table[1].flags |= CAMCONF_LOADED;
    EXPECT_EQ(camconf_adjust_rotation(1, 2), 4);
    EXPECT_EQ(camconf_adjust_rotation(1, 6), 0);
    EXPECT_EQ(camconf_adjust_rotation(2, 2), 5);
    EXPECT_EQ(camconf_adjust_rotation(2, 3), 4) << "both mirror";
    table[1].rotation = 8;
    EXPECT_EQ(camconf_adjust_rotation(2, 0), -1);
}

TEST(Camconf, SizesAreThoseOfTheSelectedTable)
{
    const camera_desk desk;
    camconf_sizeconfig size = {7, 7, 7, 7};
    EXPECT_EQ(camconf_sizeconfig_resolve(0, &size), 0) << "none is selected";
    camconf_sizeconfig_set_map(3);
    camconf_sizeconfig_set_map(0);
    EXPECT_EQ(camconf_sizeconfig_exist(0), 0);
    camconf_sizeconfig_set_map(2);
    EXPECT_EQ(camconf_sizeconfig_exist(0x105), 1) << "the low 8 bits";
    EXPECT_EQ(camconf_sizeconfig_resolve(1, &size), 0);
    EXPECT_EQ(size.width, 7);
    EXPECT_EQ(camconf_sizeconfig_resolve(5, &size), 1);
    EXPECT_EQ(size.format, 5u);
    char text[20];
    EXPECT_EQ(camconf_get_sizeconfigs(text, sizeof text), 1);
    EXPECT_STREQ(text, "\n\rConfig\tWidth\tHeig") << "cut at its room";
}

TEST(Camera, WithoutADriverNothingIsSupported)
{
    camera_desk desk;
    *camera_get_platform_callout() = {};
    std::uint32_t word = 0;
    std::uint8_t memory[CAMERA_EEPROM_SIZE];
    using results = std::vector<std::int64_t>;
    EXPECT_EQ(
        (results{camera_start(1), camera_stop(), camera_start_viewfinder({}, 0), camera_stop_viewfinder(),
                 camera_take_snapshot({}), camera_take_raw_snapshot({}), camera_grab_viewfinder_frame({}),
                 camera_release_snapshot({}, 0), camera_start_autofocus(), camera_stop_autofocus(),
                 camera_load_firmware("x"), camera_get_firmware_version(), camera_get_isp_version(),
                 camera_read_rgby(&word), camera_get_eeprom_size(), camera_read_eeprom(&word, memory)}),
        results(16, 0));
    EXPECT_EQ((results{camera_test_pattern(1), camera_get_calibration_settings(&word),
                       camera_set_calibration_settings(&word), camera_get_current_shutter_speed(),
                       camera_read_luminance(1, &word), camera_check_eeprom()}),
              results(6, -1));
    EXPECT_EQ(camera_get_autofocus_status(), 5);
    camera_set_ae_wb_window(1, 2, 3, 4);
    camera_init();
    EXPECT_EQ(camera_read_luminance(1, &word), 0) << "no active camera comes first";
}

TEST(Camera, ASnapshotTakesThePlaceOfTheOneBefore)
{
    camera_desk desk;
    std::uint8_t byte = 0;
    camera_callouts& co = *camera_get_platform_callout();
    static std::uint8_t* p_byte;
    p_byte = &byte;
    co.take_snapshot = [](std::uint32_t, camera_snapshot* p) {
        camera_desk::asked.push_back("take_snapshot");
        p->buffer = p_byte;
        p->nbr_of_bytes = 1;
        return 1;
    };
    co.prepare_snapshot = [](const camconf_sizeconfig*) {
        camera_desk::asked.push_back("prepare_snapshot");
        return 0;
    };
    const camconf_sizeconfig yuv = {0, 64, 48, 0}, direct = {5, 64, 48, 5};
    EXPECT_EQ(camera_take_snapshot(yuv), 1);
    EXPECT_EQ(camera_desk::asked, list{"take_snapshot"}) << "no viewfinder, nothing to prepare";
    EXPECT_EQ(camera_start_viewfinder(yuv, 0), 1);
    camera_desk::asked.clear();
    EXPECT_EQ(camera_take_snapshot(yuv), 1);
    EXPECT_EQ(camera_desk::asked, (list{"prepare_snapshot", "release_snapshot", "take_snapshot"}));
    camera_desk::asked.clear();
    EXPECT_EQ(camera_take_snapshot(direct), 1);
    EXPECT_EQ(camera_desk::asked, (list{"release_snapshot", "take_snapshot"}));
    // 0 isn't a failure of the release here, below it is
    camera_desk::result = -1;
    EXPECT_EQ(camera_take_snapshot(direct), 0);
    co.restart_viewfinder = [](const camconf_sizeconfig*, std::int32_t rotation) { return rotation; };
    camera_desk::result = 1;
    EXPECT_EQ(camera_release_snapshot(yuv, 0), 0);
    EXPECT_EQ(camera_release_snapshot(yuv, 2), 1);
}

TEST(Camera, AProbeComesWithTheFirstStart)
{
    camera_desk desk;
    camera_callouts& co = *camera_get_platform_callout();
    static int probes, result;
    probes = 0;
    co.camera_probe = [](std::uint32_t) {
        probes++;
        return result;
    };
    result = -1;
    EXPECT_EQ(camera_start(2), 0);
    EXPECT_EQ(camera_desk::asked, list{}) << "camera 1 goes on";
    result = 0;
    EXPECT_EQ(camera_start(2), 1);
    EXPECT_EQ(camera_desk::asked, (list{"stop", "start"}));
    EXPECT_EQ(camera_start(2), 1);
    EXPECT_EQ(camera_start(3), 0);
    EXPECT_EQ(camera_start(0x80000000), 0);
    EXPECT_EQ(probes, 2);
    EXPECT_EQ(camera_desk::asked, (list{"stop", "start"}));
    camera_desk::result = 0;
    EXPECT_EQ(camera_start(1), 0);
    EXPECT_EQ(camera_get_current_camera(), 2u);
    camera_desk::asked.clear();
    camera_set_flash(1);
    camera_set_flash(1);
    camera_set_flash(0);
    EXPECT_EQ(camera_desk::asked, (list{"flash on", "flash off"}));
}

TEST(Camera, TheMemoryIsListedUnderItsOwnLineEnds)
{
    camera_desk desk;
    line_spy spy;
    f_camera_init();
    camera_get_platform_callout()->read_eeprom = [](std::uint32_t* p_length, std::uint8_t* buf) {
        for (std::uint8_t i = 0; i < 18; i++)
            buf[i] = static_cast<std::uint8_t>(0x40 + i);
        *p_length = 18;
        return 1;
    };
    cio_s3_set(';', '!');
    cio_s4_set('a', 'b', 'c');
    EXPECT_EQ(spy.say("crom"), DCP_OK);
    EXPECT_EQ(spy.lines, (list{"[EEPROM   ]  0  1  2  3  4  5  6  7  8  9  A  B  C  D  E  F",
                               "0x00000000: 40 41 42 43 44 45 46 47 48 49 4a 4b 4c 4d 4e 4f @ABCDEFGHIJKLMNO",
                               "0x00000010: 50 51 PQ", "crom:"}));
    EXPECT_STREQ(cio_cmd_term(), ";a");
    EXPECT_STREQ(cio_cmd_final(), "!bc");
    cio_s3_set(',', '\r');
    cio_s4_set(0, '\n', 0);
}
