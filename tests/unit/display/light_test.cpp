// The converter of an LED driver, which this phone lacks: what a station would read on one that has it.
#include <cstring>
#include <gtest/gtest.h>

#include "adc/adc.h"
#include "f_light/f_light.h"
#include "unit/line_spy.h"

TEST(Light, LadcGivesTheRawCodeInSixteenBitsAndTheVoltageWhole)
{
    using list = std::vector<std::string>;
    line_spy spy;
    f_light_init();
    adc_init();
    adc_rec rec = {"", [](const char* name, int arg, int* p_val) {
                       *p_val = 0x18001 + arg;
                       return std::strcmp(name, "lmu_led_adc-1F") == 0 ? 1 : 0;
                   }};
    for (const char* name : {"lmu_led_adc-1F", "lmu_led_adc-00"}) {
        std::strcpy(rec.name, name);
        EXPECT_EQ(adc_co_add(&rec), 1);
    }
    EXPECT_EQ(spy.say("ladc=0,0x1f"), DCP_OK);
    EXPECT_EQ(spy.lines, list{"ladc:32769"});
    EXPECT_EQ(spy.say("ladc=1,31"), DCP_OK);
    EXPECT_EQ(spy.lines, list{"ladc:98306"});
    EXPECT_EQ(spy.say("ladc=1"), DCP_ERROR) << "a reading that fails, of channel 0";
    EXPECT_EQ(spy.lines, list{"ladc: "});
    adc_init();
}
