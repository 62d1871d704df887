// The cycle kernel: one operating point of the plant from end to end, in at
// most eleven passes, with the line sizes, the losses, the power and the
// figures of merit.
#pragma once

namespace kv {

struct Workspace;
struct SchemeScreen;

// Modes: 0 recalculation (entries, scrollbars), 1 the Calculate button (also
// offers the stored line sizes), 2 a silent run (the compressor label stays),
// 3 the annual run (t0 from Project::HourlyEvaporatingTemp, Qh untouched).
enum CycleMode : int { Recalculate = 0, FirstCalculation = 1, Silent = 2, AnnualHour = 3 };

// Runs the kernel; results go to ws.cycle and, as text, to `screen`. False
// when the refrigerant has no property table (the user is told).
bool CalculateCycle(Workspace& ws, SchemeScreen& screen, int mode);

// The refrigerating capacity of a heat pump of heating capacity qh (kW) at
// the cooling efficiency eer: qh eer / (1 + eer).
inline double RefrigeratingCapacity(double qh, double eer) { return eer * qh / (1 + eer); }

// Annual cost, CO2, EER and COP of the power P (kW) with the four values of
// enerACT.dat; shown in BetrKo, CO2consum, LeistZ and COP_Heiz.
void AnnualFigures(Workspace& ws, SchemeScreen& screen, double P);

}  // namespace kv
