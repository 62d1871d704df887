#!/usr/bin/env python3
"""Fits the viscosity and vapour specific heat sets of the refrigerant model
to the reference transport and caloric data, and writes

  src/core/refrigerant/correlation_sets.inc   the fitted rows, one per fluid
  data/README.md                              the section "Correlation fits"
                                              (replaced between its markers)

Usage: fit_correlations.py [REFDATA_DIR]   (default: ../shared/refdata beside
the repository). Needs numpy; not needed at build time.

Forms, as the program evaluates them (t in K, viscosities in Pa s):
  gas viscosity     0.001 * (a + b t + c t^2 + d t^3)
  liquid viscosity  0.001 * 2.71828^(a + b/t + c/t^2)
  cp, common form   4.1866 f (0.0282 + 0.3937799e-3 T - 0.128431e-6 T^2 + 2.27353/T),
                    T = 1.8 t (degrees Rankine); one factor f per role
  cp, own form      c0 + c1 t, the same in every role

Fit rules:
  * gas and liquid viscosity: least squares of the relative deviation over
    the saturated states from the first row of the table to 20 K below the
    critical point (no further than 30 K above the fluid's highest condensing
    temperature), where the vapour and liquid curves start to bend towards
    each other; the liquid form is fitted in its exponent (log space);
  * common-form cp factors (only R11, R12, R13, R13B1, whose factors the
    program does not carry): the role at the evaporator outlet evaluates the
    form at t + 5 K against the saturated vapour at t, the suction role at
    t + 7 K (5 K superheat plus 2 K in the suction line, the default
    set-up), both over the evaporating window (first row to 10 C, at most
    to 30 K below the critical point and to 0.8 of the critical temperature); the discharge role evaluates the form at
    t against the saturated vapour at t over the condensing window (20 C, or
    60 K below the critical point for low-critical fluids, up to the highest
    condensing temperature, at most 20 K below the critical point);
  * own-form cp: straight line through the saturated vapour cp over the
    evaporating window;
  * a blend whose reference column is empty takes a documented stand-in (see
    STANDIN); vapour rows missing at the cold end are filled from the stand-in,
    scaled to meet the blend's own first values.
"""
import csv
import math
import os
import re
import sys

import numpy as np

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(HERE)
sys.path.insert(0, HERE)
sys.dont_write_bytecode = True  # leave no cache in the source tree
import make_standin_tables as standin  # noqa: E402  (R13 / R13B1 constants)

E_CONST = 2.71828          # the base the program's liquid form uses
LN_E = math.log(E_CONST)

# Highest condensing temperature allowed on the screens, C, per set.
TMAX = {'R11': 65, 'R12': 70, 'R13': 25, 'R13B1': 65, 'R22': 70, 'R290_600': 75, 'PROPAN': 85,
        'PROPYLEN': 85, 'R600A': 105, 'R152A': 70, 'HFO1234YF': 80, 'HFO1234ZE': 75,
        'R134A': 85, 'R471A': 85, 'R438A': 70, 'R437A': 80, 'R513A': 85, 'R515B': 75,
        'R450A': 85, 'R124': 95, 'R227': 95}
TMAX_DEFAULT = 65

# The sets fitted here, in the order of the generated table:
# (set name, cp kind: None | 'factors' | 'own').
SETS = [
    ('R11', 'factors'), ('R12', 'factors'), ('R13', 'factors'), ('R13B1', 'factors'),
    ('R14', 'own'), ('R22', None), ('R23', 'own'), ('R508A', 'own'), ('R508B', 'own'),
    ('R502', None), ('PROPAN', None), ('R290_600', None), ('PROPYLEN', None),
    ('R600A', 'own'), ('R152A', None), ('HFO1234ZE', None), ('HFO1234YF', None),
    ('R413A', None), ('R450A', None), ('R513A', None), ('R515B', None), ('R437A', None),
    ('R471A', None), ('R123', None), ('R401A', None), ('R401B', None), ('R402A', None),
    ('R402B', None), ('R408A', None), ('R409A', None), ('R443A', None), ('R432B', None),
    ('R410A', None), ('R454A', None), ('R454B', None), ('R454C', None), ('R455A', None),
    ('R32', None), ('R507', 'own'), ('R407A', None), ('R407C', None), ('R407F', None),
    ('R407H', None), ('R427A', None), ('R438A', None), ('R448A', None), ('R449A', None),
    ('R452A', None), ('R227', None), ('R124', 'own'), ('ISC_69L', None), ('ISC_59', None),
    ('RS45', None), ('ISC_29', None), ('ISC_79', None), ('FX_90', None), ('ISC_89', None),
]
# R14 is fitted for its own-form cp only: its viscosities are the light-gas
# set the program carries. R134a's two gas sets are fitted apart (see below).
CP_ONLY = {'R14'}

# Stand-ins where the reference holds no viscosity of the blend (liquid of
# every blend computed with the mixture model; the vapour too where noted):
# the blend's main component, or the documented blend nearest in make-up.
# A list of (stem, mole fraction) mixes logarithmically (Arrhenius rule).
STANDIN = {
    'R401A': 'R22', 'R401B': 'R22', 'R402B': 'R22', 'R408A': 'R22', 'R409A': 'R22',
    'ISC_69L': 'R22', 'R502': 'R22',
    'R402A': 'R404A', 'R452A': 'R404A', 'R507': 'R404A', 'RS45': 'R404A', 'ISC_29': 'R404A',
    'ISC_79': 'R404A', 'ISC_89': 'R404A',
    'R407A': 'R407C', 'R407F': 'R407C', 'R407H': 'R407C', 'R427A': 'R407C', 'R438A': 'R407C',
    'R448A': 'R407C', 'R449A': 'R407C', 'ISC_59': 'R407C',
    'R413A': 'R134A', 'R437A': 'R134A',
    'R450A': 'HFO1234ZE', 'R515B': 'HFO1234ZE', 'R471A': 'HFO1234ZE',
    'R454A': 'HFO1234YF', 'R454C': 'HFO1234YF', 'R455A': 'HFO1234YF', 'R513A': 'HFO1234YF',
    'R454B': 'R32',
    'R508A': 'R23', 'R508B': 'R23',
    'R432B': 'PROPYLEN', 'R443A': 'PROPYLEN',
    # propane/isobutane 50/50 by mass is 0.5686/0.4314 by mole
    'R290_600': [('PROPAN', 0.5686), ('R600A', 0.4314)],
}
STANDIN_TEXT = {
    'R22': 'R22 (main component)', 'R404A': 'R404A (R125/R143a-rich HFC blend)',
    'R407C': 'R407C (R32/R125/R134a blend)', 'R134A': 'R134a (main component)',
    'HFO1234ZE': 'R1234ze(E) (main component)', 'HFO1234YF': 'R1234yf (main component)',
    'R32': 'R32 (main component)', 'R23': 'R23 (component)',
    'PROPYLEN': 'propylene (main component)',
}


# ---------------------------------------------------------------- the forms
def gas_visc(c, t):
    return 0.001 * (c[0] + c[1] * t + c[2] * t * t + c[3] * t ** 3)


def liq_visc(c, t):
    return 0.001 * E_CONST ** (c[0] + c[1] / t + c[2] / (t * t))


def cp_common(f, t, linear=False):
    r = 1.8 * t
    third = 0.128431e-6 * r if linear else 0.128431e-6 * r * r
    return 4.1866 * f * (0.0282 + 0.3937799e-3 * r - third + 2.27353 / r)


def cp_ammonia(f, t):
    return f * (1.9487 + 8.23487e-4 * t + 5.44138e-6 * t ** 2 - 3.62452e-9 * t ** 3)


def cp_propane(f, t):
    return f * (0.0830829 + 5.77693e-3 * t - 1.30581e-6 * t ** 2 - 6.91e-10 * t ** 3)


def sutherland(t):
    return 1.24e-5 * (1 + 0.87 * 345.25 / 298.15) / (1 + 0.87 * 345.25 / t) * (t / 298.15) ** 0.5


# ---------------------------------------------------------------- the data
class Ref:
    """One reference file: columns as arrays, NaN where empty."""

    def __init__(self, t, eta_l, eta_v, cp_v, tc, label):
        self.t, self.eta_l, self.eta_v, self.cp_v = t, eta_l, eta_v, cp_v
        self.tc, self.label = tc, label


def critical_temperatures(refdir):
    """Tc per table stem from the refdata README (K)."""
    out = {}
    with open(os.path.join(refdir, 'README.md'), encoding='utf-8') as f:
        for line in f:
            m = re.match(r'\| (\S+)\.(DAT|dat) \|', line)
            if not m:
                continue
            tc = re.search(r'Tc = (-?[\d.]+) °C', line)
            if tc:
                out[m.group(1)] = float(tc.group(1)) + 273.15
    # R13: its saturated densities close at 301.7-302.0 K, the critical point
    # of its equation of state (302.0 K); the README's 29.9 C does not fit them.
    out['R13'] = standin.R13['tc']
    # R508A: no critical point from the mixture model; its table ends at 5 C
    # one step below where the solver failed, as R508B's ends below 11.4 C.
    out.setdefault('R508A', out.get('R508B', 284.5))
    return out


def load(refdir, stem, tcs):
    path = os.path.join(refdir, 'transport', stem + '.csv')
    rows = []
    with open(path, newline='') as f:
        rd = csv.reader(f)
        next(rd)
        for r in rd:
            rows.append([float(x) if x else math.nan for x in r])
    a = np.array(rows)
    return Ref(a[:, 0], a[:, 1], a[:, 2], a[:, 4], tcs[stem], stem + '.csv')


def r13b1_from_r13(r13):
    """R13B1 by corresponding states from R13 (as its saturation table)."""
    a, b = standin.R13, standin.R13B1
    t = r13.t * b['tc'] / a['tc']
    # Viscosity reduced with xi = Tc^(1/6) M^(-1/2) pc^(-2/3).
    xi = lambda s: s['tc'] ** (1 / 6) * s['m'] ** -0.5 * s['pc'] ** (-2 / 3)
    k = xi(a) / xi(b)
    cp = r13.cp_v * a['m'] / b['m'] + standin.DCP0
    return Ref(t, r13.eta_l * k, r13.eta_v * k, cp, b['tc'], 'R13.csv by corresponding states')


def mix_log(refs, fractions, column):
    """Arrhenius mixing of saturated values at the same temperatures."""
    common = set(np.round(refs[0].t, 2))
    for r in refs[1:]:
        common &= set(np.round(r.t, 2))
    t = np.array(sorted(common))
    ln = np.zeros_like(t)
    for r, x in zip(refs, fractions):
        col = getattr(r, column)
        ln += x * np.log(np.interp(t, r.t, col))
    return t, np.exp(ln)


# ---------------------------------------------------------------- the fits
def fit_gas(t, eta, a_fixed=None):
    """Cubic in t, relative least squares; a held at a_fixed when given."""
    y = 1000.0 * eta
    w = 1.0 / y
    s = np.array([1.0, 300.0, 300.0 ** 2, 300.0 ** 3])
    cols = np.vstack([np.ones_like(t), t, t * t, t ** 3]).T / s
    if a_fixed is None:
        c, *_ = np.linalg.lstsq(cols * w[:, None], y * w, rcond=None)
        return list(c / s)
    c, *_ = np.linalg.lstsq(cols[:, 1:] * w[:, None], (y - a_fixed) * w, rcond=None)
    return [a_fixed] + list(c / s[1:])


def fit_liq(t, eta):
    y = np.log(1000.0 * eta) / LN_E
    cols = np.vstack([np.ones_like(t), 1.0 / t, 1.0 / t ** 2]).T
    c, *_ = np.linalg.lstsq(cols, y, rcond=None)
    return list(c)


def fit_factor(form_values, ref_values):
    """f minimising the relative deviation of f * form from the reference."""
    q = form_values / ref_values
    return float(np.sum(q) / np.sum(q * q))


def fit_own(t, cp):
    w = 1.0 / cp
    cols = np.vstack([np.ones_like(t), t]).T
    c, *_ = np.linalg.lstsq(cols * w[:, None], cp * w, rcond=None)
    return list(c)


def deviation(model, ref):
    e = model / ref - 1.0
    return float(np.max(np.abs(e))), float(np.sqrt(np.mean(e * e)))


def visc_window(name, ref_tc):
    hi = min(ref_tc - 20.0, 273.15 + TMAX.get(name, TMAX_DEFAULT) + 30.0)
    return hi


def evap_window_hi(tc):
    # Above about 0.8 Tc the saturated vapour's cp climbs steeply with its
    # density; a low-pressure form cannot follow that, and fitting into it
    # would tilt the form at the temperatures where it is used.
    return min(283.15, tc - 30.0, 0.8 * tc)


def cond_window(name, tc):
    lo = min(293.15, tc - 60.0)
    hi = min(273.15 + TMAX.get(name, TMAX_DEFAULT), tc - 20.0)
    return lo, hi


def pick(ref, column, hi, lo=-1.0):
    col = getattr(ref, column)
    m = (ref.t <= hi + 1e-6) & (ref.t >= lo - 1e-6) & ~np.isnan(col)
    return ref.t[m], col[m]


def standin_column(refs, name, column):
    """(t, values, label) of a blend's stand-in for one column."""
    s = STANDIN[name]
    if isinstance(s, list):
        parts = [refs[stem] for stem, _ in s]
        t, v = mix_log(parts, [x for _, x in s], column)
        label = ' + '.join(f'{stem} x={x}' for stem, x in s) + ' (log mixing by mole fraction)'
        tc = min(p.tc for p in parts)
        return t, v, label, tc
    r = refs[s]
    col = getattr(r, column)
    m = ~np.isnan(col)
    return r.t[m], col[m], STANDIN_TEXT.get(s, s), r.tc


def gas_data(refs, name, own):
    """Vapour viscosity rows for a set: its own, cold end filled from the stand-in."""
    t, v = own.t[~np.isnan(own.eta_v)], own.eta_v[~np.isnan(own.eta_v)]
    if len(t) == 0:
        st, sv, label, _ = standin_column(refs, name, 'eta_v')
        return st, sv, f'stand-in {label}'
    if t[0] > own.t[0] + 1e-6 and name in STANDIN:
        st, sv, label, _ = standin_column(refs, name, 'eta_v')
        joint = [x for x in t[:3] if np.any(np.isclose(st, x))]
        ratio = np.mean([v[list(t).index(x)] / sv[np.isclose(st, x)][0] for x in joint])
        fill = (st < t[0] - 1e-6) & (st >= own.t[0] - 1e-6)
        if not np.any(fill):
            return t, v, own.label
        t = np.concatenate([st[fill], t])
        v = np.concatenate([sv[fill] * ratio, v])
        return t, v, (f'{own.label}, below {own.t[~np.isnan(own.eta_v)][0]:.2f} K '
                      f'{label} x {ratio:.3f}')
    return t, v, own.label


def fit_all(refdir):
    tcs = critical_temperatures(refdir)
    stems = [f[:-4] for f in os.listdir(os.path.join(refdir, 'transport')) if f.endswith('.csv')]
    refs = {s: load(refdir, s, tcs) for s in stems}
    refs['R13B1'] = r13b1_from_r13(refs['R13'])

    out = []
    for name, cp_kind in SETS:
        own = refs[name]
        row = dict(name=name, cp_kind=cp_kind, tc=own.tc)
        if name not in CP_ONLY:
            hi = visc_window(name, own.tc)
            # vapour
            gt, gv, glabel = gas_data(refs, name, own)
            m = gt <= hi + 1e-6
            row['gas'] = fit_gas(gt[m], gv[m])
            row['gas_dev'] = deviation(gas_visc(row['gas'], gt[m]), gv[m])
            row['gas_range'] = (gt[m][0], gt[m][-1])
            row['gas_ref'] = glabel
            # liquid
            if np.all(np.isnan(own.eta_l)):
                lt, lv, llabel, ltc = standin_column(refs, name, 'eta_l')
                lhi = min(hi, ltc - 20.0)
                m = (lt <= lhi + 1e-6) & (lt >= own.t[0] - 1e-6)
                lt, lv = lt[m], lv[m]
                llabel = f'stand-in {llabel}'
            else:
                lt, lv = pick(own, 'eta_l', hi)
                llabel = own.label
            row['liq'] = fit_liq(lt, lv)
            row['liq_dev'] = deviation(liq_visc(row['liq'], lt), lv)
            row['liq_range'] = (lt[0], lt[-1])
            row['liq_ref'] = llabel
        if cp_kind == 'factors':
            et, ev = pick(own, 'cp_v', evap_window_hi(own.tc))
            f_evap = fit_factor(cp_common(1.0, et + 5.0), ev)
            f_suc = fit_factor(cp_common(1.0, et + 7.0), ev)
            lo, chi = cond_window(name, own.tc)
            ct, cv = pick(own, 'cp_v', chi, lo)
            f_dis = fit_factor(cp_common(1.0, ct), cv)
            row['cp'] = [f_evap, f_suc, f_dis]
            row['cp_dev'] = [deviation(cp_common(f_evap, et + 5.0), ev),
                             deviation(cp_common(f_suc, et + 7.0), ev),
                             deviation(cp_common(f_dis, ct), cv)]
            row['cp_range'] = [(et[0], et[-1]), (et[0], et[-1]), (ct[0], ct[-1])]
        elif cp_kind == 'own':
            et, ev = pick(own, 'cp_v', evap_window_hi(own.tc))
            row['own'] = fit_own(et, ev)
            row['cp_dev'] = [deviation(row['own'][0] + row['own'][1] * et, ev)]
            row['cp_range'] = [(et[0], et[-1])]
        row['cp_ref'] = own.label
        out.append(row)

    # R134a: the two gas sets keep their given a; b, c, d are fitted. The set
    # of the evaporating role over the evaporating range (to 20 C), the set of
    # the suction and discharge roles over the whole range.
    r = refs['R134A']
    hi = visc_window('R134A', r.tc)
    t, v = pick(r, 'eta_v', min(hi, 293.15))
    evap = fit_gas(t, v, a_fixed=-3.1501)
    r134a = dict(evap=evap, evap_dev=deviation(gas_visc(evap, t), v), evap_range=(t[0], t[-1]))
    t, v = pick(r, 'eta_v', hi)
    hot = fit_gas(t, v, a_fixed=-0.0498811323)
    r134a.update(hot=hot, hot_dev=deviation(gas_visc(hot, t), v), hot_range=(t[0], t[-1]))
    return refs, out, r134a


# ------------------------------------------------ literal sets, compared
def literal_comparisons(refs):
    """How the sets the program carries as given compare with the reference."""
    light_g = (-0.35311, 4.66531e-2, -2.00808e-5, 2.91045e-9)
    light_l = (-4.22738, 594.41, 0.0)
    co2_g = (-5.34835, 1.1418e-1, -3.35825e-5, 4.72675e-9)
    co2_l = (-7.9732, 2614.41, -243288.0)

    def r134a_liq(t):
        return 1e-6 * E_CONST ** (3.555 + 714.25 / t - 0.0019969 * t)

    def r404a_liq(t):
        return np.where(t < 280.0, liq_visc((-3.88835, 666.021, 0.0), t),
                        liq_visc((-13.586, 6104.13, -763533.0), t))

    rows = []

    def add(fluid, role, model, stem, column):
        r = refs[stem]
        col = getattr(r, column)
        # viscosities to 20 K below the critical point, cp over the evaporating window
        hi = evap_window_hi(r.tc) if column == 'cp_v' else r.tc - 20.0
        m = ~np.isnan(col) & (r.t <= hi + 1e-6)
        if not np.any(m):
            rows.append((fluid, role, None, None, None, stem))
            return
        q = model(r.t[m]) / col[m]
        rows.append((fluid, role, (r.t[m][0], r.t[m][-1]), float(np.min(q)), float(np.max(q)), stem))

    for stem in ('R50', 'R170', 'R1150', 'R14'):
        add(stem, 'gas viscosity', lambda t: gas_visc(light_g, t), stem, 'eta_v')
        add(stem, 'liquid viscosity', lambda t: liq_visc(light_l, t), stem, 'eta_l')
    add('CO2', 'gas viscosity, evaporating and suction (x 1.38)', lambda t: 1.38 * gas_visc(co2_g, t), 'CO2', 'eta_v')
    add('CO2', 'gas viscosity, discharge (x 1.1)', lambda t: 1.1 * gas_visc(co2_g, t), 'CO2', 'eta_v')
    add('CO2', 'liquid viscosity, evaporating (x 0.67)', lambda t: 0.67 * liq_visc(co2_l, t), 'CO2', 'eta_l')
    add('CO2', 'liquid viscosity, condensing (x 0.96)', lambda t: 0.96 * liq_visc(co2_l, t), 'CO2', 'eta_l')
    add('AMMONIAK, R717, R723', 'gas viscosity', lambda t: gas_visc(co2_g, t), 'AMMONIAK', 'eta_v')
    add('AMMONIAK, R717, R723', 'liquid viscosity', lambda t: liq_visc(co2_l, t), 'AMMONIAK', 'eta_l')
    add('R134a', 'liquid viscosity, evaporating (x 1.08)', lambda t: 1.08 * r134a_liq(t), 'R134A', 'eta_l')
    add('R134a', 'liquid viscosity, condensing (x 1.122)', lambda t: 1.122 * r134a_liq(t), 'R134A', 'eta_l')
    for stem in ('R404A', 'HX4'):
        add(stem, 'gas viscosity (Sutherland)', sutherland, stem, 'eta_v')
        add(stem, 'liquid viscosity, evaporating (x 1.013/1.823266)',
            lambda t: 1.013 / 1.823266 * r404a_liq(t), stem, 'eta_l')
        add(stem, 'liquid viscosity, condensing', r404a_liq, stem, 'eta_l')
    add('R123', 'cp own form 0.671 + 0.001765 t (t in K, as the program evaluates it)',
        lambda t: 0.671 + 0.001765 * t, 'R123', 'cp_v')
    add('R123', 'the same line read with t in C (for comparison only)',
        lambda t: 0.671 + 0.001765 * (t - 273.15), 'R123', 'cp_v')
    add('AMMONIAK, R717', 'cp at evaporator outlet (ammonia form, f = 1)', lambda t: cp_ammonia(1.0, t), 'AMMONIAK', 'cp_v')
    add('R290', 'cp at evaporator outlet (propane form, f = 1.09)', lambda t: cp_propane(1.09, t), 'PROPAN', 'cp_v')
    return rows


# ---------------------------------------------------------------- output
def g(x):
    return f'{x:.12g}'


def arr(values):
    return '{' + ', '.join(g(v) for v in values) + '}'


def write_inc(path, rows, r134a):
    lines = [
        '// Fitted coefficient sets of the refrigerant correlations, generated by',
        '// tools/fit_correlations.py from the reference transport and caloric data',
        '// (saturated states of the reference equations of state; the section',
        '// "Correlation fits" of data/README.md gives the deviations). Do not edit by',
        '// hand: change the script and run it again. Included once, by',
        '// correlations.cpp, after the definition of FittedSet.',
        '//',
        '// Per row: gas viscosity a, b, c, d for PolyViscosity (t in K, Pa s); liquid',
        '// viscosity a, b, c for ExpViscosity (t in K, Pa s); common-form cp factors at',
        '// the evaporator outlet, at suction and at discharge; own-form cp c0, c1',
        '// (kJ/(kg K), t in K). A part that is not fitted is all zeros.',
        '',
        'constexpr FittedSet kFittedSets[] = {',
    ]
    for r in rows:
        notes = []
        if 'gas' in r:
            notes.append(f"gas {r['gas_ref']}, {r['gas_range'][0]:.2f}-{r['gas_range'][1]:.2f} K")
            notes.append(f"liquid {r['liq_ref']}, {r['liq_range'][0]:.2f}-{r['liq_range'][1]:.2f} K")
        if 'cp_range' in r:
            rg = r['cp_range']
            notes.append(f"cp {r['cp_ref']}, {rg[0][0]:.2f}-{rg[-1][1]:.2f} K")
        lines.append(f"    // {r['name']}: " + notes[0])
        lines += [f'    //   {n}' for n in notes[1:]]
        gas = r.get('gas', [0, 0, 0, 0])
        liq = r.get('liq', [0, 0, 0])
        cpf = r.get('cp', [0, 0, 0])
        own = r.get('own', [0, 0])
        lines.append(f'    {{"{r["name"]}", {arr(gas)},')
        lines.append(f'     {arr(liq)}, {arr(cpf)}, {arr(own)}}},')
    lines.append('};')
    lines.append('')
    e, h = r134a['evap_range'], r134a['hot_range']
    lines += [
        '// R134a: the two gas sets keep the a the program gives them; b, c, d are',
        f'// fitted to R134A.csv, the evaporating set over {e[0]:.2f}-{e[1]:.2f} K, the set of',
        f'// the suction and discharge roles over {h[0]:.2f}-{h[1]:.2f} K.',
        f'constexpr std::array<double, 4> kR134aGasEvaporating{arr(r134a["evap"])};',
        f'constexpr std::array<double, 4> kR134aGasSuctionDischarge{arr(r134a["hot"])};',
        '',
    ]
    with open(path, 'w', newline='\n') as f:
        f.write('\n'.join(lines))


def pct(x):
    return f'{100 * x:.1f}'


def report(rows, r134a, literal):
    L = []
    L.append('## Correlation fits')
    L.append('')
    L.append('The refrigerant model computes vapour and liquid viscosities and vapour specific')
    L.append('heats from closed forms with one coefficient set per fluid. Sets the program')
    L.append('carries as given (the light-gas set of R50, R170, R1150 and R14, CO2, ammonia,')
    L.append('the R134a liquid form, the R404A/HX4 forms, the cp factors and molar masses per')
    L.append('fluid, R123\'s cp line) are kept as they stand: they are the calibration of the')
    L.append('model. The rest is fitted by `tools/fit_correlations.py` to the reference data')
    L.append('(saturated states from the reference equations of state, the same source as the')
    L.append('property tables) and generated into `src/core/refrigerant/correlation_sets.inc`.')
    L.append('All viscosities the model produces are meant in Pa s.')
    L.append('')
    L.append('Fit ranges: viscosities from the first table row to 20 K below the critical')
    L.append('point (at most 30 K above the highest condensing temperature); the saturated')
    L.append('vapour and liquid curves bend towards each other beyond that. cp: the')
    L.append('evaporating window (first row to 10 C, at most to 30 K below the critical point')
    L.append('and to 0.8 of the critical temperature, where the saturated vapour cp starts to')
    L.append('climb steeply with its density)')
    L.append('for the evaporator-outlet and suction roles and for own forms; the condensing')
    L.append('window (20 C, for low-critical fluids 60 K below the critical point, to the')
    L.append('highest condensing temperature) for the discharge role, fitted against the')
    L.append('saturated vapour at the condensing temperature, which is the upper end of what')
    L.append('the discharge gas holds while it is desuperheated.')
    L.append('')
    L.append('Deviations are relative, model over reference minus 1, in %: max / RMS over the')
    L.append('range shown.')
    L.append('')
    L.append('### Fitted viscosity sets')
    L.append('')
    L.append('| Set | Gas reference | Gas range K | Gas max / RMS % | Liquid reference | Liquid range K | Liquid max / RMS % |')
    L.append('|---|---|---|---|---|---|---|')
    for r in rows:
        if 'gas' not in r:
            continue
        L.append(f"| {r['name']} | {r['gas_ref']} | {r['gas_range'][0]:.2f}-{r['gas_range'][1]:.2f} | "
                 f"{pct(r['gas_dev'][0])} / {pct(r['gas_dev'][1])} | {r['liq_ref']} | "
                 f"{r['liq_range'][0]:.2f}-{r['liq_range'][1]:.2f} | {pct(r['liq_dev'][0])} / {pct(r['liq_dev'][1])} |")
    e, h = r134a['evap_range'], r134a['hot_range']
    L.append(f"| R134a, evaporating (a = -3.1501 held) | R134A.csv | {e[0]:.2f}-{e[1]:.2f} | "
             f"{pct(r134a['evap_dev'][0])} / {pct(r134a['evap_dev'][1])} | (given form) | | |")
    L.append(f"| R134a, suction and discharge (a = -0.0498811323 held) | R134A.csv | {h[0]:.2f}-{h[1]:.2f} | "
             f"{pct(r134a['hot_dev'][0])} / {pct(r134a['hot_dev'][1])} | (given form) | | |")
    L.append('')
    L.append('### Fitted cp sets')
    L.append('')
    L.append('| Set | Form | Reference | Role | Range K | Coefficient | Max / RMS % |')
    L.append('|---|---|---|---|---|---|---|')
    for r in rows:
        if r['cp_kind'] == 'factors':
            for role, f, dev, rg in zip(('evaporator outlet (t + 5 K)', 'suction (t + 7 K)', 'discharge'),
                                        r['cp'], r['cp_dev'], r['cp_range']):
                L.append(f"| {r['name']} | common | {r['cp_ref']} | {role} | {rg[0]:.2f}-{rg[1]:.2f} | "
                         f"f = {f:.4f} | {pct(dev[0])} / {pct(dev[1])} |")
        elif r['cp_kind'] == 'own':
            rg, dev = r['cp_range'][0], r['cp_dev'][0]
            L.append(f"| {r['name']} | own, c0 + c1 t | {r['cp_ref']} | all | {rg[0]:.2f}-{rg[1]:.2f} | "
                     f"{r['own'][0]:.4f} + {r['own'][1]:.6f} t | {pct(dev[0])} / {pct(dev[1])} |")
    L.append('')
    L.append('### Sets kept as given, against the reference')
    L.append('')
    L.append('Ratio model / reference over the reference range (to 20 K below the critical')
    L.append('point for viscosities, over the evaporating window for cp). The light-gas and')
    L.append('CO2/ammonia gas polynomials give about a thousand times the vapour viscosity in')
    L.append('Pa s: they yield mPa s. R123\'s cp line fits its data when t is read in C, but')
    L.append('the program hands it K, as every other form. All of these stay as they are.')
    L.append('')
    L.append('| Fluid | Quantity | Reference | Range K | Ratio min … max |')
    L.append('|---|---|---|---|---|')
    for fluid, role, rg, lo, hi, stem in literal:
        if rg is None:
            L.append(f'| {fluid} | {role} | {stem}.csv | — | no reference value |')
        else:
            L.append(f'| {fluid} | {role} | {stem}.csv | {rg[0]:.2f}-{rg[1]:.2f} | {lo:.3g} … {hi:.3g} |')
    L.append('')
    return '\n'.join(L)


BEGIN = '<!-- correlation fits: generated by tools/fit_correlations.py -->'
END = '<!-- end of correlation fits -->'


def update_readme(path, section):
    with open(path, encoding='utf-8') as f:
        text = f.read()
    block = BEGIN + '\n' + section + END + '\n'
    if BEGIN in text and END in text:
        a = text.index(BEGIN)
        b = text.index(END) + len(END) + 1
        text = text[:a] + block + text[b:]
    else:
        text = text.rstrip('\n') + '\n\n' + block
    with open(path, 'w', encoding='utf-8', newline='\n') as f:
        f.write(text)


def main():
    refdir = sys.argv[1] if len(sys.argv) > 1 else os.path.join(ROOT, '..', 'shared', 'refdata')
    refs, rows, r134a = fit_all(refdir)
    write_inc(os.path.join(ROOT, 'src', 'core', 'refrigerant', 'correlation_sets.inc'), rows, r134a)
    update_readme(os.path.join(ROOT, 'data', 'README.md'), report(rows, r134a, literal_comparisons(refs)))
    worst = sorted(((max(r.get('gas_dev', (0, 0))[0], r.get('liq_dev', (0, 0))[0]), r['name']) for r in rows),
                   reverse=True)[:8]
    print('largest viscosity deviations:', ', '.join(f'{n} {pct(d)} %' for d, n in worst))
    print(f"R134a gas sets: evaporating {pct(r134a['evap_dev'][0])} %, hot {pct(r134a['hot_dev'][0])} %")


if __name__ == '__main__':
    main()
