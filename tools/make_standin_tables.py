#!/usr/bin/env python3
"""Builds the two saturation tables that the reference property set lacks.

  R13B1.DAT  bromotrifluoromethane, by corresponding states from the R13
             (chlorotrifluoromethane) reference table, a molecule of the same
             shape (CF3Cl against CF3Br, acentric factors 0.17 and 0.18).
  R723.DAT   the ammonia/dimethyl ether azeotrope 60/40, stood in for by the
             pure ammonia table.

Usage: make_standin_tables.py REFDATA_DIR OUT_DIR
       (REFDATA_DIR holds tables/*.DAT; OUT_DIR is normally data/)

Not needed at build time: the two files it writes are kept in data/.
"""
import os
import sys

import numpy as np
from scipy.interpolate import CubicSpline

# Critical constants. R13: those of the reference equation of state behind
# R13.DAT (its saturated densities close at 301.7-302.0 K, which this
# agrees with). R13B1: Tc = 340.08 K, pc = 39.56 bar, rho_c = 5.13 mol/l,
# normal boiling point 215.40 K, M = 148.91 kg/kmol (published property
# tables of bromotrifluoromethane); pressure check point 14.34 bar at 20 C.
R13 = dict(tc=302.0, pc=38.79, rhoc=582.88, m=104.459)
R13B1 = dict(tc=340.08, pc=39.56, rhoc=5.13 * 148.91, m=148.91, tnb=215.40)
P_CHECK_20C = 14.34   # bar, vapour pressure of R13B1 at 20 C
IIR_T = 273.15        # saturated liquid 200 kJ/kg here
# Corresponding states carry R13's ideal-gas heat capacity over in units of R,
# but CF3Br holds about 6 J/(mol K) more than CF3Cl at corresponding
# temperatures (69.3 J/(mol K) at 298 K against R13's 63.3 at 265 K, ideal-gas
# tables). That much is added to the slope of both saturated enthalpies.
DCP0 = 6.0 / 148.91   # kJ/(kg K)


def read_table(path):
    return np.loadtxt(path, delimiter=',')


def fmt7(x):
    """Seven significant digits, plain decimal notation, as the reference files."""
    if x == 0:
        return '0'
    digits = 7 - 1 - int(np.floor(np.log10(abs(x))))
    digits = max(digits, 0)
    return f'{x:.{digits}f}'


def row_text(t, p_dew, p_bub, h_liq, h_vap, rho_liq, rho_vap):
    return ','.join([f'{t:.2f}', fmt7(p_dew), fmt7(p_bub), f'{h_liq:.3f}', f'{h_vap:.3f}',
                     fmt7(rho_liq), fmt7(rho_vap)])


def r13b1_rows(r13):
    """R13B1 rows on the 5 K grid from -65 C, as far as R13 reaches in reduced temperature."""
    t13, p13, hl13, hv13, rl13, rv13 = (r13[:, i] for i in (0, 1, 3, 4, 5, 6))
    # Splines in the variables that are smooth along the saturation line.
    # ln(p/pc) against reduced temperature; nearly linear in 1/Tr, so the
    # spline runs over Tr and is evaluated with care near its ends.
    ln_pr = CubicSpline(t13 / R13['tc'], np.log(p13 / R13['pc']))
    rho_l = CubicSpline(t13 / R13['tc'], rl13 / R13['rhoc'])
    rho_v = CubicSpline(t13 / R13['tc'], np.log(rv13 / R13['rhoc']))
    h_l = CubicSpline(t13 / R13['tc'], hl13)
    h_lat = CubicSpline(t13 / R13['tc'], hv13 - hl13)

    # The vapour pressure curve in reduced form is stretched by k so that the
    # normal boiling point comes out right (the acentric factor's effect).
    tr_nb = R13B1['tnb'] / R13B1['tc']
    k = np.log(1.01325 / R13B1['pc']) / ln_pr(tr_nb)
    # Enthalpy differences scale with R*Tc/M; the latent heat follows the
    # stretched vapour pressure curve (Clausius-Clapeyron), so it takes k too.
    h_scale = (R13['m'] / R13B1['m']) * (R13B1['tc'] / R13['tc'])

    tr_max = t13[-1] / R13['tc']
    rows = []
    t = 273.15 - 65.0
    h0 = None
    while (t + 1e-9) / R13B1['tc'] <= tr_max:
        tr = t / R13B1['tc']
        p = R13B1['pc'] * np.exp(k * ln_pr(tr))
        hl = float(h_l(tr)) * h_scale
        lat = float(h_lat(tr)) * h_scale * k
        rl = float(rho_l(tr)) * R13B1['rhoc']
        rv = float(np.exp(rho_v(tr))) * R13B1['rhoc']
        rows.append([t, p, hl, lat, rl, rv])
        t += 5.0
    # IIR reference: saturated liquid at 0 C is 200 kJ/kg.
    h0 = float(h_l(IIR_T / R13B1['tc'])) * h_scale
    out = []
    for t, p, hl, lat, rl, rv in rows:
        hl = hl - h0 + 200.0 + DCP0 * (t - IIR_T)
        out.append((t, p, p, hl, hl + lat, rl, rv))
    p20 = R13B1['pc'] * np.exp(k * ln_pr(293.15 / R13B1['tc']))
    return out, k, p20


def check(rows, name):
    for a, b in zip(rows, rows[1:]):
        assert b[0] > a[0] and b[1] > a[1] and b[2] > a[2], name + ': pressures must rise'
    for r in rows:
        assert r[4] > r[3], name + ': hVap above hLiq'
        assert r[5] > r[6], name + ': rhoLiq above rhoVap'


def write(path, rows):
    with open(path, 'w', newline='\n') as f:
        for r in rows:
            f.write(row_text(*r) + '\n')


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    ref, out = sys.argv[1], sys.argv[2]
    r13 = read_table(os.path.join(ref, 'tables', 'R13.DAT'))
    rows, k, p20 = r13b1_rows(r13)
    check(rows, 'R13B1')
    write(os.path.join(out, 'R13B1.DAT'), rows)
    cold = [r for r in rows if abs(r[0] - 213.15) < 1e-6][0]
    warm = [r for r in rows if abs(r[0] - 298.15) < 1e-6][0]
    print(f'R13B1: {len(rows)} rows, {rows[0][0] - 273.15:.0f} .. {rows[-1][0] - 273.15:.0f} C, '
          f'vapour pressure stretch k = {k:.4f}, p(20 C) = {p20:.3f} bar '
          f'(published {P_CHECK_20C}), latent heat at -60 C = {cold[4] - cold[3]:.1f} kJ/kg, '
          f'liquid density at 25 C = {warm[5]:.0f} kg/m3')

    # R723: the ammonia rows from 5 K below its lowest evaporating temperature (-60 C).
    amm = read_table(os.path.join(ref, 'tables', 'AMMONIAK.DAT'))
    rows = [tuple(r) for r in amm if r[0] >= 273.15 - 65.0 - 1e-6]
    check(rows, 'R723')
    with open(os.path.join(ref, 'tables', 'AMMONIAK.DAT')) as f:
        lines = [ln for ln in f.read().splitlines() if ln and float(ln.split(',')[0]) >= 208.15 - 1e-6]
    with open(os.path.join(out, 'R723.DAT'), 'w', newline='\n') as f:
        f.write('\n'.join(lines) + '\n')
    print(f'R723: {len(lines)} rows copied from AMMONIAK.DAT, '
          f'{rows[0][0] - 273.15:.0f} .. {rows[-1][0] - 273.15:.0f} C')


if __name__ == '__main__':
    main()
