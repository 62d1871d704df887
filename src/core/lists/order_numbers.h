// The order number screen (BestellN): what the generated lists order from
// each maker, the quantities of equal order numbers added up, filtered by
// maker, ready to be copied into an order.
#pragma once

#include <string>
#include <vector>

namespace kv {

struct Workspace;

struct OrderLine {
    std::string maker;        // title of the catalogue the article comes from
    std::string orderNumber;
    std::string designation;
    std::string kind;         // component kind caption
    int quantity = 0;
};

struct OrderNumbersScreen {
    std::vector<std::string> makers;  // the makers of the lists, in order of appearance
    int maker = -1;                   // -1: all makers
    std::vector<OrderLine> all;       // every article of the lists
    std::vector<OrderLine> shown;     // the lines of the chosen maker
};

// Reads the units and the parts list with their change blocks: components
// and their accessories (which belong to the maker of their parent).
void OpenOrderNumbers(const Workspace& ws, OrderNumbersScreen& s);
void ChooseOrderMaker(OrderNumbersScreen& s, int maker);
// The shown lines as tab-separated text: quantity, order number,
// designation, maker.
std::string OrderText(const OrderNumbersScreen& s);

}  // namespace kv
