#pragma once
// Bits that follow from exact rational arithmetic with one rounding after each operation.
// Written by exact_figures.py, which says what they tell apart; do not edit.

// clang-format off
namespace exact_figures {

struct ProductCase { double a[4], b[4], result[4]; };
inline constexpr ProductCase productCases[] = {
    {{-0x1.4c3ef02dd2125p-3, -0x1.f41fce1eca229p-3, 0x1.e50eeb7b3ff7bp-3, -0x1.8330de52fec14p-3}, {-0x1.4744f43c243eep+1, -0x1.43c90d01e13bep-1, 0x1.44d0938c20ebbp-1, 0x1.03c83be77367bp-2}, {0x1.bf9287400f901p-2, -0x1.c7b7dae82e3e1p-2, -0x1.29cbb2369c1dep-1, -0x1.88ed657efa88dp-1}},
    {{-0x1.b192e31146644p-2, 0x1.f9524c8395aadp-1, 0x1.5508eabda62a8p+0, -0x1.c24d0749fc882p-3}, {0x1.ace88cedc842fp+0, -0x1.c1189d29e6868p+1, -0x1.68cebfc188d19p-1, 0x1.cc9069a66c6aep-2}, {0x1.b5b7919590b50p+1, 0x1.930f6a52fb4f5p+1, 0x1.2c16e2fd7f166p-1, 0x1.40c5f07abf868p+2}},
    {{-0x1.5747dafee2375p-2, -0x1.ab6b0339364f8p-2, 0x1.36240162ef271p-1, 0x1.bea44dd02ae8dp-2}, {-0x1.6757d97d3c89bp+1, -0x1.de42afc90d5c5p+0, -0x1.483a0569f62a7p+1, -0x1.790c0fda1e09ap-3}, {0x1.0a08f0dc20209p+0, -0x1.a62b3ebb74f06p+1, -0x1.c686f295b2f00p+0, -0x1.fbc26f6972080p-3}},
    {{-0x1.81dd4afe72170p+1, 0x1.77a637bea9505p-1, -0x1.1a61178ad8549p+1, 0x1.4efc0808dcdcdp-3}, {0x1.0deabecedc7d8p-2, 0x1.263999270bcdfp-1, 0x1.6c4c2b23ed3c6p-2, -0x1.cb3aaa667317bp+0}, {0x1.beb1c07e43b2ap+2, -0x1.765e814881b72p-1, 0x1.0b80f6be959f4p+1, 0x1.ba940f90033d6p-1}},
    {{-0x1.91f3fd4ff2f9dp-1, -0x1.78af5d1fc30edp-2, 0x1.83b1d37b08fe0p-2, 0x1.cfe9f05ca66e4p-1}, {0x1.c38d468345b63p+0, 0x1.42ffcf9d18a93p+0, -0x1.6848cf8dc013ep+0, -0x1.4a056f7ca21d9p-3}, {0x1.c3c58e27daf38p+0, 0x1.87e82259ceab8p-1, -0x1.ad88e39daf595p+0, 0x1.1e2be92cd53bap+1}},
    {{-0x1.06153e14af0e9p+1, 0x1.92a1f5a5b6624p+0, 0x1.936adbaa606a9p-2, -0x1.4522843366451p-2}, {-0x1.112526e03492ap-2, 0x1.d22595b697f3ep-1, -0x1.f4c7cd4c73257p+1, -0x1.eed9211fdc344p-2}, {-0x1.5c04da4a604e3p+2, -0x1.25465676c134fp+3, -0x1.9234adbd7f8d1p-2, -0x1.2223031bb4d28p-2}},
    {{-0x1.16406abe3f501p-3, -0x1.8820ca5f6137ap+0, -0x1.866432c7eaf25p-2, 0x1.487365744e43fp+1}, {-0x1.16ed6da5ac048p-3, 0x1.3443f4d19a0b1p+1, 0x1.1eed6016159f9p+0, 0x1.b095a8afc903cp-1}, {-0x1.434e9626d18e2p+0, 0x1.45c0198c0a953p+2, 0x1.0250c432fffc0p+1, 0x1.9102281687a5ep+2}},
    {{-0x1.1911315c30e10p+1, 0x1.d542a70bf4bdap-2, -0x1.732c6555c47d8p+1, 0x1.05af39e41f14fp-1}, {0x1.f0c22a45e11b8p+1, -0x1.b6b5940ca621ap-1, -0x1.feabf437c5c0ap+0, -0x1.63f447b55bad7p+0}, {0x1.a34d55e0e578cp+0, -0x1.0b593e276141ep+4, 0x1.8ec827b7c789ap+1, 0x1.35ad19368bcbcp+1}},
};

struct NormalizeCase { double q[4], result[4]; };
inline constexpr NormalizeCase normalizeCases[] = {
    {{-0x1.eaddb97b7a4bdp-1, -0x1.9d8207eb51c68p-2, 0x1.944fdf933039ep+1, 0x1.3f0ef849c13a5p-3}, {-0x1.26e1e2fb1c64bp-2, -0x1.f0d2132d921fdp-4, 0x1.e5c59b57cf256p-1, 0x1.7f57783aad147p-5}},
    {{-0x1.7e629d0d561a3p-2, -0x1.e26c643d51a70p-2, 0x1.503fb0f269393p-2, -0x1.a80b31792710ap+0}, {-0x1.aaa83b0d451dap-3, -0x1.0d2388a40b193p-2, 0x1.772ddbdf03841p-3, -0x1.d92389cc05a46p-1}},
    {{-0x1.b797c29712bedp+1, 0x1.9037808c5006fp-1, 0x1.e33315337b929p+1, 0x1.79af8691082e1p-2}, {-0x1.53b560aff2ecbp-1, 0x1.35478e7a56f47p-3, 0x1.75682b649bf0cp-1, 0x1.23de2e173655fp-4}},
    {{0x1.9c8f13d19fdecp-3, -0x1.350f8ad8f87d0p-2, -0x1.258e5c8fadccfp+0, -0x1.d58fb7cea3ba5p+0}, {0x1.782ed7349b5a8p-4, -0x1.19cf74b6940cep-3, -0x1.0bac3e5daa595p-1, -0x1.ac28d39e6074ap-1}},
    {{-0x1.05462786d1cb1p-2, -0x1.3db74103c5895p+0, -0x1.76e22c4fe00cfp-2, -0x1.44dfb5d75a29cp-1}, {-0x1.6509ce4b0af0dp-3, -0x1.b22ae7d6601c4p-1, -0x1.0024f76e159e3p-2, -0x1.bbf3023481cf1p-2}},
    {{0x1.db3c87d42199bp-1, -0x1.2ad5707dbd691p+1, -0x1.d428dbfb574b4p-2, -0x1.d4c56bd514b1bp-3}, {0x1.72b754756b0c3p-2, -0x1.d23873d252e4bp-1, -0x1.6d321aff9dd91p-3, -0x1.6dac3bf4a7c28p-4}},
    {{-0x1.09fd30a05eb40p+1, -0x1.43c72318328c3p-2, 0x1.f192609a64e24p+0, -0x1.daa4d145a72f4p-3}, {-0x1.726dea03b849bp-1, -0x1.c2e8b0a903571p-4, 0x1.5a78afa2aeeb0p-1, -0x1.4a819152cb238p-4}},
    {{-0x1.55aa8f29f3ec9p-1, 0x1.fc10a815f2024p+1, 0x1.d9d1919aff2c3p+1, 0x1.91f282a9f32d1p+1}, {-0x1.b17561cf36aa6p-4, 0x1.4247f4bd588dbp-1, 0x1.2c8eb9f1a173ap-1, 0x1.fdef4a92e1fb3p-2}},
};

struct RotatePointCase { double q[4], p[3], result[3]; };
inline constexpr RotatePointCase rotatePointCases[] = {
    {{0x1.7895944e03b5dp+0, 0x1.e15feb3ce2395p-2, -0x1.e2a6476876627p-3, -0x1.83f650f813b2bp-2}, {-0x1.25c5e91e65a81p+1, -0x1.5a212ad451b97p+0, -0x1.649c1b866f780p+0}, {-0x1.34f95be412beap+2, -0x1.28fa1212f500ap+1, 0x1.6805bf1356ae0p+2}},
    {{0x1.5bd925398a2e6p+1, 0x1.a4c57b735a9cdp-3, 0x1.6514569484e66p+1, 0x1.63f5f784a46e2p-3}, {-0x1.f852be9d703e7p-2, 0x1.4f77fd02e07a4p+0, -0x1.957c387bd3734p-2}, {-0x1.68d86283b3b94p+2, -0x1.4e36b5c7f2e27p+4, -0x1.361057b4bc28cp+2}},
    {{0x1.2815b0b166eeap+1, 0x1.77744049ce669p+0, 0x1.e611a66de4c85p+0, -0x1.28b06a855bf6bp-3}, {-0x1.2105c7abe6497p-3, -0x1.7c3d0dd9db903p+0, 0x1.3a612e16fe776p+1}, {0x1.3614468fd2301p+3, 0x1.885684cc29972p+4, -0x1.2185ef2001e6cp+4}},
    {{-0x1.503fb33e90baep-2, 0x1.d278c09e5bc98p-2, -0x1.551bd7666e3a9p-2, 0x1.b9918c17aaceep-3}, {0x1.4858f31c77037p-3, -0x1.d18bd73e0c691p+0, -0x1.0be158aee1591p+1}, {-0x1.3991f6f6ca52ap-1, 0x1.a159a2d7c803cp-3, 0x1.24b7b6172e6a2p+0}},
    {{-0x1.ec1cdd5626392p-2, 0x1.73ad81c3212bdp+0, -0x1.7ea3fd767d910p-1, 0x1.d055cc360535fp+0}, {0x1.6359b75a09244p-2, -0x1.5099a8d804d18p+1, -0x1.0010cdf1ef759p+1}, {-0x1.e45e05d7e1620p+3, -0x1.96137d8ce077cp+3, 0x1.6c575ac5bb00ap+2}},
    {{-0x1.93095fa0b6600p+0, 0x1.1d8fe21647e36p-3, -0x1.8aa4570bc96e2p-3, -0x1.1789f4914a730p+0}, {0x1.2badb3d8145e1p-1, -0x1.1569587158798p-2, -0x1.aa424122a6bfcp+1}, {0x1.578cf525d42fap+0, 0x1.7f15c31310ddap+3, 0x1.eba61c6a63dfep+1}},
    {{0x1.e0850e1f0db82p-1, 0x1.817de63d78a60p+0, -0x1.acd5014ed6f98p-1, -0x1.fae6043ee832bp-1}, {0x1.00e26d4e51f1ep-1, 0x1.2d0353bbb5287p-1, 0x1.082edfb33fa36p-1}, {-0x1.1c04a582c4142p+1, 0x1.717cfba4c3cb5p+1, -0x1.50033a5d04c08p+1}},
    {{-0x1.ca80c1d0d9e4cp-2, 0x1.507012875cb32p-3, -0x1.c479a6005d8a5p+0, -0x1.4c11c852ff040p+0}, {0x1.6d2eade85e1bbp+1, 0x1.294c3ad559002p+0, -0x1.cbd78a18ed53fp+0}, {-0x1.661b28086b24bp+3, 0x1.bd5421b0ece08p+3, -0x1.d1ac4940710e6p+0}},
};

struct DistanceCase { double a[4], b[4], cosineOfHalf; };
inline constexpr DistanceCase distanceCases[] = {
    {{-0x1.bfe40116a0af8p-1, -0x1.4851c1a70aa5bp-4, -0x1.1a49be7134babp-2, 0x1.8fa90028617b8p-2}, {-0x1.1887ee6aaab5ep-1, -0x1.a9d85525cb7a2p-1, 0x1.2e9d5647eb7eep-4, 0x1.9e9c723412a0fp-5}, 0x1.173986d7af0f1p-1},
    {{0x1.a982114ab00a7p-1, 0x1.ca5af5888ca91p-2, -0x1.10a6621129f12p-2, 0x1.8f9976325165ep-3}, {0x1.d1794f5f80479p-1, -0x1.3f31905f55503p-3, -0x1.639b474b77a5cp-2, -0x1.5a530d910ec62p-3}, 0x1.7d923b725cdbfp-1},
    {{-0x1.65dbfdfc9e3b9p-2, 0x1.b7fa26dfefe65p-2, 0x1.2e8c96a9c6974p-2, -0x1.8e8f141ef9f31p-1}, {-0x1.3746e9799cf18p-3, 0x1.cf5ee25b88fd9p-1, -0x1.9123f7e8c9f81p-2, -0x1.0efc2053e71a7p-4}, 0x1.82cbab1a9709cp-2},
};

struct SetAxisCosAngleCase { double axis[3], cosine, result[4]; };
inline constexpr SetAxisCosAngleCase setAxisCosAngleCases[] = {
    {{0x1.d10ccd9d1f666p+0, -0x1.6b57fe336c539p+0, 0x1.64a367b568a6cp+1}, -0x1.8f56fcb7481f4p-1, {0x1.e545cab3bdddbp-2, -0x1.7b24c69ce98bdp-2, 0x1.74258adf83cc9p-1, 0x1.53a7207ba6293p-2}},
    {{-0x1.d76c972f2391ap+0, 0x1.ae9b49e195e1ap+1, 0x1.4ea295b3c44acp+0}, 0x1.1ce156133c35cp-2, {-0x1.17962be35344bp-2, 0x1.fec20c96c38b5p-2, 0x1.8cec39585d0f2p-3, 0x1.994ffba23888ap-1}},
    {{-0x1.ce832e38d3d72p-2, 0x1.5c90c5b3398aep-2, 0x1.4992433efef36p-3}, 0x1.e23044ca731bcp-1, {-0x1.0c69029c60719p-3, 0x1.94910c7c4570ap-4, 0x1.7e8552202fc0fp-5, 0x1.f87df9999649ep-1}},
    {{0x1.d99369fbc945ap-3, -0x1.6cde71e0023e9p-1, 0x1.fe1a68695cc4cp-2}, -0x1.82d581b986bc8p-1, {0x1.ed26591781df6p-3, -0x1.7bf3250269d88p-1, 0x1.0997eb7867dacp-1, 0x1.660222b61bb5ep-2}},
    {{-0x1.007225b22f01ep-3, 0x1.2b8c9ff42be02p-1, -0x1.f1e80e2f58683p+0}, 0x1.53c072c2bcc40p-2, {-0x1.2360a1516b199p-5, 0x1.545a290d09ec3p-3, -0x1.1add3c47841f0p-1, 0x1.a1cdd6376e9c9p-1}},
    {{0x1.20b65e294097cp-2, -0x1.9d45c9355414ap+1, 0x1.24db94c0649eap+1}, -0x1.a912fd187c2a0p-4, {0x1.b082d780ee33dp-5, -0x1.358e331879e94p-1, 0x1.b6b89cd571e17p-2, 0x1.56bd0945b4da8p-1}},
};

struct UnitAxisCase { double axis[3], result[3]; };
inline constexpr UnitAxisCase unitAxisCases[] = {
    {{-0x1.6a34e16ba44fcp+0, 0x1.feb54cc0f32b6p-2, -0x1.39d49aa4fefdap-2}, {-0x1.d91b51e66ff8dp-1, 0x1.4d89ca3cc0f24p-2, -0x1.99eb3bfb7fa89p-3}},
    {{0x1.34f394df4b190p-3, -0x1.1c4749cc95708p-1, -0x1.9d0111b9d942ep-1}, {0x1.37d07beadd668p-3, -0x1.1ee9a92c944c5p-1, -0x1.a0d4cee43eebcp-1}},
    {{-0x1.3a1bb9b64264fp+1, -0x1.40c93c3e7b753p-1, -0x1.0c798ec15913fp+0}, {-0x1.ca589af87b93ap-1, -0x1.d4171e46bbb0bp-3, -0x1.87c2034cd401fp-2}},
};

struct SetFromMatrixCase { double m[9], result[4]; };
inline constexpr SetFromMatrixCase setFromMatrixCases[] = {
    {{0x1.19e675f05d2e3p-1, 0x1.aa63cf4ebc614p-1, -0x1.d76a77d8d925ap-5, -0x1.8fdd79cf829d4p-1, 0x1.1392a21b1ee58p-1, 0x1.446acadcb7226p-2, 0x1.2de367ac41714p-2, -0x1.09326265b8d5ep-3, 0x1.e4bb41bef52c5p-1}, {-0x1.064ee4beff904p-3, -0x1.9e2fb38770b8cp-4, -0x1.da3c8972b6616p-2, 0x1.be065919bbf3ap-1}},
    {{0x1.fd380d1716b94p-1, 0x1.5d7b945ebddc7p-4, 0x1.e83d3b3aab07ap-5, -0x1.3f7e20209d8b9p-4, 0x1.fafa6efb05d25p-1, -0x1.daca3433b47dap-4, -0x1.1a3c40a6f93dfp-4, 0x1.c52b9789a8ca3p-4, 0x1.fba1faa652fdcp-1}, {0x1.d15d6481db6f3p-5, 0x1.07f68274bdce7p-5, -0x1.4f7c694211321p-5, 0x1.fe79f9866de6bp-1}},
    {{0x1.335b63ec783e5p-5, -0x1.437b2c5d8c230p-1, -0x1.8c66fa97df629p-1, 0x1.18871bc7acd1fp-3, 0x1.8a9a3a2666972p-1, -0x1.3e9d1e72242fap-1, 0x1.facf536387aaap-1, -0x1.52bfbf21abe90p-4, 0x1.d8ea5ff0db287p-4}, {0x1.8e61289460e4ap-3, -0x1.459b399e9c5d0p-1, 0x1.1bcb2aba9aef6p-2, 0x1.63107651f381bp-1}},
    {{0x1.d5946c43204cep-1, 0x1.5ba8c1dc2a6ebp-3, 0x1.713d9e0bbaf21p-2, -0x1.178bea6c7de3ap-3, 0x1.f7b8307e5245ep-1, -0x1.db111db1dfb10p-4, -0x1.7f6e4960632e5p-2, 0x1.d435ff8cf478ep-5, 0x1.d9d9583473819p-1}, {0x1.6a89a3a06e8bdp-5, 0x1.80c6645a5cdf3p-3, -0x1.40a2a4f302e66p-4, 0x1.f4c538d6c7b5fp-1}},
    {{0x1.999251e06b29dp-1, -0x1.e9faeba5a5d69p-2, 0x1.72cfb27cbdcbep-2, -0x1.31ee0c4a95781p-2, 0x1.a56caa3f9b52cp-3, 0x1.dd1f42d3c4eb9p-1, -0x1.0a74012057cc0p-1, -0x1.b5103310ae28dp-1, 0x1.62bff0439a54cp-6}, {-0x1.41062ec475dd1p-1, 0x1.3d5929e0d150ep-2, 0x1.0285ff8704995p-4, 0x1.6c81ebf3279d3p-1}},
    {{0x1.6f7fd5a3a80fcp-1, 0x1.e2c05b1f74d7cp-2, -0x1.0658eec575135p-1, -0x1.229186e0effebp-1, 0x1.a51b27371bdd8p-1, -0x1.39676b2491be5p-5, 0x1.9d143911ced0dp-2, 0x1.45e44730f9bfep-2, 0x1.b73e15bd29cfap-1}, {0x1.8c144c7540336p-4, -0x1.fcb7e5bdb32b5p-3, -0x1.2090ee2483821p-2, 0x1.d7e95bd07f5bap-1}},
    {{0x1.eea96ef6b3b71p-1, -0x1.03fdb51dde212p-2, -0x1.78f9e0059940dp-5, 0x1.8c99bb39f9f9cp-3, 0x1.a9a2337e18c6ep-1, -0x1.0abd1f24bde67p-1, 0x1.5d3e810c4131dp-3, 0x1.fa494fb8205d1p-2, 0x1.b464ac4ec0decp-1}, {0x1.1020714c1c8c1p-2, -0x1.d0474742fdb1cp-5, 0x1.dfc687f700ab1p-4, 0x1.e9129d43b74aap-1}},
    {{0x1.8f4e719e36a25p-1, 0x1.26f19a53fb745p-1, 0x1.f54dd67a999a5p-3, -0x1.c7d85dccd02dfp-2, 0x1.92220128852d8p-1, -0x1.b861d9467881ep-2, -0x1.c28dc5e6221eep-2, 0x1.cfbe18254f553p-3, 0x1.bceb70643b386p-1}, {0x1.6ac1783bdfe98p-3, 0x1.7a60f5d57f0d6p-3, -0x1.1a250bebe099ep-2, 0x1.da6a564f2a1fbp-1}},
    {{0x1.9bf069fa619f2p-1, -0x1.2076006a28357p-1, 0x1.8083a3cd2db09p-3, 0x1.d131a0c280a2cp-2, 0x1.9337074ac97c5p-1, 0x1.aa6d854d544f4p-2, -0x1.87a8679d6a615p-2, -0x1.ff7fae491f880p-3, 0x1.c7758c1834d4bp-1}, {-0x1.6d990ba923632p-3, 0x1.38efb457f9d50p-3, 0x1.173fde4c5d1f9p-2, 0x1.ddad17ba3ca1bp-1}},
    {{0x1.1d216d46352b8p-3, -0x1.fb032dccd4f2cp-1, -0x1.1116203928bf7p-9, -0x1.399161148eefep-2, -0x1.504abaa05b37cp-5, -0x1.e6f381cbf9d06p-1, 0x1.e229bfe345701p-1, 0x1.107cb89c4c6c3p-3, -0x1.3c5da07d5696ap-2}, {0x1.38681a4527f27p-1, -0x1.0ff8e355cc675p-1, 0x1.8a3b5b95c0de9p-2, 0x1.c6da05a68fd92p-2}},
    {{0x1.eb34c96971624p-1, 0x1.1dd9900971c88p-2, 0x1.4cda6e7c42294p-5, 0x1.0696da17ec527p-2, -0x1.9b24faaa1b9bap-1, -0x1.137002962a835p-1, -0x1.e176a040879fcp-4, 0x1.0d95ec09fe1c3p-1, -0x1.af18ff607d2d0p-1}, {0x1.e605a72c75bbep-1, 0x1.20e0708c6a633p-3, -0x1.4be02837be9a6p-6, 0x1.1f13d3e31fabbp-2}},
    {{0x1.76cbaa0f03ac3p-4, 0x1.65b77ce8597e9p-1, 0x1.6b4d0fcdb5b64p-1, 0x1.fa8034a0c1dd6p-1, 0x1.236a8afc388a5p-6, -0x1.292151d783368p-3, -0x1.d2e28c18e3004p-4, 0x1.6e3236cee9c1dp-1, -0x1.610aaf5bcb810p-1}, {0x1.53ef9a5b3d633p-1, 0x1.4569f6400978ep-1, 0x1.cb4a8347efc17p-3, 0x1.4bb7976c582d2p-2}},
    {{0x1.faec1f7b91fcfp-1, 0x1.08d45c3442e93p-3, 0x1.c1b1644f23145p-5, 0x1.9f707e6afcad5p-4, -0x1.db52c3ee5c60fp-1, 0x1.6e24fa56c495ep-2, 0x1.8e203b1dcfca5p-4, -0x1.64cfe10de272dp-2, -0x1.dd52f77a1d755p-1}, {0x1.f65afcd960da9p-1, 0x1.e19f255f34cf6p-5, 0x1.3d776427960e5p-5, -0x1.706b101d02a6dp-3}},
    {{0x1.e40e381fc01cfp-1, 0x1.e455f8ad83360p-5, -0x1.4821aaf1fe66cp-2, 0x1.29b385127bb2cp-5, -0x1.fe27e38fb79a9p-1, -0x1.39d873008e35cp-4, -0x1.4b9692bf51723p-2, 0x1.f2093904b8c05p-5, -0x1.e3696f1119b5dp-1}, {0x1.f8a6745d2fe08p-1, 0x1.8cb6a6cbf1375p-6, -0x1.4ea9ff4ef5c7fp-3, 0x1.1d87d803ac524p-5}},
    {{0x1.c0d6e47a41406p-1, -0x1.d8d8c0c56efd7p-2, -0x1.14e01c22f05b0p-3, -0x1.eba290da754cdp-2, -0x1.b743cffceed9bp-1, -0x1.767920a29ec5fp-3, -0x1.027e66ebeea10p-5, 0x1.cd35810fa02abp-3, -0x1.f29611878d5b4p-1}, {0x1.ecfbae266bbc4p-1, -0x1.f4d7e253d9ca6p-3, -0x1.62ac1472a9257p-5, 0x1.b1f5946e6901fp-4}},
    {{0x1.54590865e4f98p-4, -0x1.3c06440bcc6c7p-3, -0x1.f8136bb57894bp-1, -0x1.7c1149c5e541ap-1, -0x1.56624a30d6157p-1, 0x1.59611f37b949ap-5, -0x1.546a891b9ff7cp-1, 0x1.74640e9ab4945p-1, -0x1.5c63a158e7ab1p-3}, {0x1.62e6c9606731cp-1, -0x1.4b2456f48a0b3p-2, -0x1.3093c3687fe39p-1, 0x1.fa16dc910a599p-3}},
    {{0x1.fc9c73c5142aep-1, 0x1.78e1b94c7f7d5p-4, -0x1.19a4b065bb9d3p-4, 0x1.b99dae7e6da49p-4, -0x1.e821c7e5daf24p-1, 0x1.209c5cccdc674p-2, -0x1.4494f68092617p-5, -0x1.264ab5c3020f4p-2, -0x1.e9fafc10b9522p-1}, {0x1.f9cd89749f3d8p-1, 0x1.9e434c52dae44p-5, -0x1.c15f8e3b7398ep-6, -0x1.2705a9e44259cp-3}},
    {{-0x1.fbb6198c69c4ep-1, -0x1.e7e609ebc6ee3p-5, 0x1.d56863539fe70p-4, -0x1.0cbc1d084b8f8p-4, 0x1.fe42d85279d3ap-1, -0x1.97babd932238dp-5, -0x1.c7ac137fd907ap-4, -0x1.d1e8c3994a4a6p-5, -0x1.fbfcd8065ca5fp-1}, {-0x1.00f9057de0160p-5, 0x1.febe58738ffb3p-1, -0x1.b5e4e12bce275p-6, 0x1.cfad8f2e56171p-5}},
    {{-0x1.73e074193eaf3p-2, -0x1.00afc3ceb1492p-2, -0x1.cb7487ec70558p-1, -0x1.d5eb5db521b61p-1, -0x1.1d0459efc9048p-4, 0x1.9040173f5bd46p-2, -0x1.488b946541bc3p-3, 0x1.ee5ef08f983ffp-1, -0x1.a36d3c1b9b9ffp-3}, {-0x1.e8be902107bc0p-2, 0x1.395d6841b6fdfp-1, 0x1.1bae3be3d600ap-1, -0x1.343f26a6755aap-2}},
    {{-0x1.285dbfc67e70ap-1, 0x1.a8b9073cd9684p-2, 0x1.6776a8f38597bp-1, -0x1.68e626c9e17e1p-3, 0x1.8dd3dfe786268p-1, -0x1.3569dd06b07e6p-1, -0x1.97a3f55dca928p-1, -0x1.e4e42462822d4p-2, -0x1.81b6554577691p-2}, {0x1.278b9fd5e0974p-4, 0x1.a72d2e922e912p-1, -0x1.4dd8a52ce1925p-2, 0x1.d00eec7540b0bp-2}},
    {{-0x1.b4d4501dd7057p-1, -0x1.0d1dbd36917afp-3, -0x1.0273cbfcd7e5fp-1, -0x1.b6e5b278717cbp-2, 0x1.74cf91d6303cfp-1, 0x1.11dbc66b3c79cp-1, 0x1.3068d6c8c5fb6p-2, 0x1.586d3c77b73c4p-1, -0x1.5ae99d6cc69f1p-1}, {-0x1.3da95716e1574p-3, 0x1.ce2434881d940p-1, 0x1.567ea27611e2ep-2, -0x1.c6f60c365f233p-3}},
    {{-0x1.379bc5f2b0ad1p-1, 0x1.8554e7202e952p-2, -0x1.649482f579e0ep-1, 0x1.5aefd864b0727p-5, 0x1.c8b8e464190f1p-1, 0x1.ccc65dbec2077p-2, 0x1.95ad4323a3795p-1, 0x1.f475940463abfp-3, -0x1.1e35d6e7392bbp-1}, {0x1.eebe3f0c8c97bp-4, 0x1.bfcaa4ba97797p-1, 0x1.967a3c9412e4bp-3, -0x1.b3c739689aa85p-2}},
    {{-0x1.93c7cbd8ce791p-1, 0x1.7c411a278b303p-2, -0x1.f5d376940696ep-2, 0x1.f509b0a50bbc3p-2, 0x1.b92f985b4ac03p-1, -0x1.135dcbeb13e90p-3, 0x1.7d4a879af8d36p-2, -0x1.621f61ea0b015p-2, -0x1.b8f663c87212ap-1}, {0x1.d64b067c3d24fp-3, 0x1.dfb94450e3050p-1, -0x1.067289f9e9516p-3, -0x1.d74457adceb6fp-3}},
    {{-0x1.5af228e5aeb27p-1, -0x1.e38838de2f3e9p-3, -0x1.649823052d76dp-1, 0x1.f8dcb6a91f526p-4, 0x1.cb5e4d0336c20p-1, -0x1.b23ecf38d998ap-2, 0x1.73335bd1756b8p-1, -0x1.7e29bb5dc5a03p-2, -0x1.2861b0b95094dp-1}, {-0x1.0444b8d1497a2p-5, 0x1.c69f3669f7643p-1, -0x1.cbb950ee7097ap-3, -0x1.99d33f0521ad4p-2}},
    {{-0x1.19d437538c7c6p-3, -0x1.d12eb39736053p-1, -0x1.93e883061458ap-2, 0x1.9886130966079p-3, -0x1.a976b430b46a4p-2, 0x1.c6607805f483fp-1, -0x1.f0bcfe2f66b40p-1, 0x1.63e35fa4f1005p-5, 0x1.e843e6dd66e8bp-3}, {-0x1.0500d0d76374cp-1, 0x1.64177d48e9908p-2, 0x1.56a64471e9bdep-1, 0x1.a7d9c177218f9p-2}},
    {{-0x1.61c60bdfaa5d1p-3, -0x1.4a6fa873ba1fdp-1, 0x1.7cf6d1a1d679dp-1, 0x1.0f2f5ab3b3e1cp-3, -0x1.870ee4fc2de33p-1, -0x1.4373ca7218f8cp-1, 0x1.f3b9d0033e218p-1, -0x1.5b67f67dc3d76p-7, 0x1.bd39c1e87c19dp-3}, {0x1.2c0a0887a3b75p-1, -0x1.c02e3e691ebfep-3, 0x1.77b6390062ceap-1, 0x1.0f584624ca34cp-2}},
    {{-0x1.e3592b95a50cfp-1, 0x1.4f2cc90149bcdp-2, 0x1.4cebe1b81908fp-5, -0x1.51a7af5724737p-2, -0x1.e103e1684b22fp-1, -0x1.7ccef7ff54c5ap-4, 0x1.fbda78e5e16a7p-8, -0x1.9e6326030d2c0p-4, 0x1.fd5bab40e378fp-1}, {0x1.92923d31d31e3p-7, -0x1.93c8ddc6441b1p-5, 0x1.f827ae5a8d571p-1, -0x1.55a6530287bd7p-3}},
    {{-0x1.adcdd21155e2cp-1, -0x1.ccb072e1899c7p-2, 0x1.381d341f2ca75p-2, 0x1.1f6d57243b4e2p-2, -0x1.adb23ecc7a066p-1, -0x1.dcdefb38be3cap-2, 0x1.dc7b9578f8d48p-2, -0x1.38b504e9b624ep-2, 0x1.a95e76c64e33ap-1}, {0x1.a4f38289dbac4p-3, -0x1.a5799b5c31f80p-3, 0x1.df95170275d94p-1, 0x1.8f57c3c5c306bp-3}},
    {{-0x1.1e9f03065bb18p-1, 0x1.eace52e312352p-6, 0x1.a7fa46611f14cp-1, 0x1.488e290c62e3dp-1, -0x1.3baf9aeecd2a5p-1, 0x1.d310f9ff722eap-2, 0x1.0c68e999367c7p-1, 0x1.92cdc6bfa6ad0p-1, 0x1.4dc2ef7156242p-2}, {0x1.b5b383d07d29cp-2, 0x1.9244aaca82f37p-2, 0x1.94f59560f6519p-1, 0x1.8c023cc85ebe9p-3}},
    {{-0x1.22f4bf696c7dap-1, -0x1.e7eb6be829dacp-3, 0x1.933f990a9e0cbp-1, 0x1.b1ae09572fcefp-2, -0x1.cf87f95b8eccap-1, 0x1.03dd4a4bacb90p-5, 0x1.693495bcd45d0p-1, 0x1.6805f63c8757cp-2, 0x1.3b129469ea600p-1}, {0x1.b2f43d6e76696p-2, 0x1.bea6c8c458deep-4, 0x1.c1eed1c64e686p-1, 0x1.818f1f63dc35ap-3}},
};

struct GetRotationMatrixCase { double q[4], result[9]; };
inline constexpr GetRotationMatrixCase getRotationMatrixCases[] = {
    {{-0x1.aa9ce47bff384p-1, 0x1.b66bb0ce81fa4p-4, 0x1.d728b3be47ba5p-3, -0x1.f70fbe9073dc7p-2}, {0x1.be124088d2f87p-1, 0x1.86841c47a4630p-5, -0x1.f44650185e8cfp-2, -0x1.9e1e761ac7c2fp-2, -0x1.fa41eaa3bb99ep-2, -0x1.89f31221826b9p-1, -0x1.1ce42c54431fbp-2, 0x1.bc616f90ae385p-1, -0x1.a553b69a6042ap-2}},
    {{-0x1.d869b2fe58d68p-3, 0x1.5fddabe0ffe4ep-2, 0x1.51bc0a6e8e7fap-4, -0x1.d02d7fc4380c4p-1}, {0x1.8021563859829p-1, -0x1.27891a958ec40p-7, -0x1.527a19b9dc098p-1, -0x1.3b6cb5975bdc6p-2, 0x1.c28d5e8ec2d1fp-1, -0x1.72431cd77ef34p-2, 0x1.2b863761d557ep-1, 0x1.e6506df080ee2p-2, 0x1.509b39b3cf845p-1}},
    {{-0x1.544e9bd942876p-3, -0x1.e0023ba34c660p-5, 0x1.76d4c65273453p-4, 0x1.f5ceaef6188c9p-1}, {0x1.f3e8ae0f0eb8fp-1, -0x1.477d1e0036324p-3, -0x1.2982b031bd6a5p-3, 0x1.973fe983aef14p-3, 0x1.db26a80cf1143p-1, 0x1.428d0287bbf0cp-2, 0x1.59e2882e0bcc8p-4, -0x1.5883944e6e2f6p-2, 0x1.e035e93e8fa53p-1}},
    {{-0x1.73cbb05d94424p-1, 0x1.7f07d095dc345p-4, 0x1.392b9246347dap-4, 0x1.5a89350a52cfep-1}, {0x1.f10f302a2185cp-1, -0x1.ea1ae9a1e46aap-3, 0x1.fd5441608daf8p-7, -0x1.08b8b2ec4e710p-5, -0x1.0fa38c6691806p-4, 0x1.fe9ad864d13f8p-1, -0x1.e6a8965f335b4p-3, -0x1.eff64a6b3b272p-1, -0x1.2763264efc711p-4}},
    {{0x1.9b2e1524f679ep-2, 0x1.4f4c358b67c5bp-1, 0x1.43ac9aed2d1cep-1, 0x1.9eb48bd0d6febp-4}, {-0x1.50658e25bbddap-1, 0x1.97765b2e481b8p-2, 0x1.47d56726e161dp-1, 0x1.4ed087c2f4882p-1, -0x1.f2c21af8f7534p-4, 0x1.7e4dd17ab8e49p-1, 0x1.8015f2a7428dap-2, 0x1.d190a1dffbff1p-1, -0x1.710f2b7b08b2ep-3}},
    {{-0x1.cd83e6a62a3d7p-3, -0x1.0bcbf2cc6b821p-1, 0x1.e87a975a0a73dp-2, -0x1.56bad9570d99dp-1}, {-0x1.27f5e05784a40p-9, 0x1.bfae36b4be572p-1, 0x1.f0e3bb73efffdp-2, -0x1.9c942e8b11e74p-2, 0x1.c5f5a80d042ccp-2, -0x1.99f6461fc39b2p-1, -0x1.d499fa12eafe0p-1, -0x1.941af8ec6e646p-3, 0x1.67b95808384a4p-2}},
};

} // namespace exact_figures
// clang-format on
