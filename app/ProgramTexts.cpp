#include "app/ProgramTexts.h"

#include "framework/Text.h"
#include "res/resource.h"

namespace plotvane {

MeterTexts LoadMeterTexts() {
    return {LoadText(IDS_METER),
            LoadText(IDS_FIELD_NUMBER),
            LoadText(IDS_MILEAGE_CAPTION),
            LoadText(IDS_CONSUMPTION_CAPTION),
            LoadText(IDS_MPG),
            LoadText(IDS_LITRES_PER_100KM)};
}

AcquisitionTexts LoadAcquisitionTexts() {
    return {LoadText(IDS_LIVE_TITLE),
            {LoadText(IDS_MPG), LoadText(IDS_LITRES_PER_100KM), LoadText(IDS_GALLONS_PER_HOUR)}};
}

}  // namespace plotvane
