#include "report_forms.h"

#include "auction/auction_form.h"
#include "auction/delivery_form.h"
#include "brokerquery/broker_form.h"
#include "convert/convert_form.h"
#include "logs/admin_log_form.h"
#include "market/breakup_form.h"
#include "market/sixa_sevena_form.h"
#include "logs/order_log_form.h"
#include "logs/quote_log_form.h"
#include "kesto/kesto_form.h"
#include "market/touchlines_form.h"
#include "market/trader_limits_form.h"
#include "position/kesto_net_position_form.h"
#include "position/position_form.h"
#include "trades/trades_form.h"

namespace quillon {

static constexpr FormEntry entries[] = {
    {"PRNTRPT", tradesFormEvent},
    {"PRNTNP", netPositionFormEvent},
    {"PRNTNPRET", slbPositionFormEvent},
    {"PRNTBRKREP", brokerQueryFormEvent},
    {"AUCRPT", auctionFormEvent},
    {"DELV", deliveryFormEvent},
    {"PRNTTLINE", touchlinesFormEvent},
    {"PRNTTRDLM", traderLimitsFormEvent},
    {"PRNTADMINLOG", adminLogFormEvent},
    {"PRNTSIXASEVENA", sixaSevenaFormEvent},
    {"PRNTBRKUP", breakupFormEvent},
    {"PRNTORDLOG", orderLogFormEvent},
    {"PRNTQUOTELOG", quoteLogFormEvent},
    {"PRNTNETPOS", kestoNetPositionFormEvent},
    {"PRNTVQLS", kestoFormEvent},
    {"CONVERT", convertFormEvent},
};

std::span<const FormEntry> reportForms() { return entries; }

}  // namespace quillon
