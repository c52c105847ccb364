#pragma once
// Bits that follow from exact rational arithmetic with one rounding after each operation.
// Written by exact_figures.py, which says what they tell apart; do not edit, but make it anew beside it:
//     python3 exact_figures.py > exact_figures.h

// clang-format off
namespace exact_figures {

struct ProductCase { double a[4], b[4], result[4]; };
inline constexpr ProductCase productCases[] = {
    {{0x1.02dd20b729601p-3, -0x1.e1eca1aa5148cp+0, -0x1.e50eeb7b3ff7bp-2, -0x1.8330de52fec14p-3}, {-0x1.4744f43c243eep-1, 0x1.d2b6c5e97f5f8p-2, 0x1.5a7ef44d09f3dp-3, -0x1.dd75ea557ce75p-3}, {-0x1.6fce1ceeaf3a0p-7, 0x1.44a9f60506c79p-1, -0x1.1136ec556c8adp+0, 0x1.1021de7959c8ap+0}},
    {{-0x1.b192e31146644p-1, 0x1.f9524c8395aadp+1, 0x1.abda6573231efp+0, -0x1.93d54eeee7355p+0}, {0x1.0e199c24d025bp+0, -0x1.d29e6047e2168p+0, 0x1.54920b948c159p+1, -0x1.e06b6cc906e10p-3}, {0x1.82b539494b2ccp+3, 0x1.7dce86e40dbaap+2, -0x1.cd80b8faa5be8p+2, 0x1.00cc79742a124p+2}},
    {{-0x1.5747dafee2375p-3, -0x1.ab6b0339364f8p-1, 0x1.36240162ef271p+0, -0x1.bea44dd02ae8dp+1}, {0x1.151d1d36173aep+1, 0x1.fc90d12be0517p-3, -0x1.483a0569f62a7p+0, 0x1.2833c08cfd026p+0}, {-0x1.bea4cf51e955cp+2, 0x1.26a8f6ece0352p-1, 0x1.e90ad90348692p+2, -0x1.e9f487fe28b62p+0}},
    {{0x1.bc68477a635eap-2, 0x1.1a61178ad8549p+1, -0x1.eb37c4efc09f5p-1, -0x1.0deabecedc7d8p-1}, {0x1.263999270bcdfp+0, -0x1.6c4c2b23ed3c6p-2, 0x1.cb3aaa667317bp+1, 0x1.d4ff215565fb4p-3}, {0x1.c449e864adf44p+2, -0x1.f78ab315f3ea2p+0, -0x1.33434488fa222p+2, 0x1.cdbfe346b4c10p+1}},
    {{-0x1.78af5d1fc30edp-1, -0x1.83b1d37b08fe0p-1, 0x1.cfe9f05ca66e4p+0, 0x1.c38d468345b63p+0}, {0x1.42ffcf9d18a93p-3, 0x1.6848cf8dc013ep+1, -0x1.cd7dfdfe0eb4ap-1, -0x1.0af8badabb39ep-3}, {-0x1.02d2ed4e223cap+2, 0x1.2bea96069f914p+2, -0x1.e3853c4030563p+1, 0x1.d34f0032e0356p+1}},
    {{0x1.995fefe007fe9p-1, 0x1.e6a1392a1f44fp+0, -0x1.936adbaa606a9p-3, -0x1.4522843366451p-3}, {-0x1.112526e03492ap+1, 0x1.5b69744823bd1p+1, -0x1.d4c73017d2342p-3, -0x1.319ffeed92a17p-3}, {0x1.46a58ac7b63abp-2, -0x1.c77b66f790fa8p-4, 0x1.92b4b03645e10p+2, -0x1.bcbcc18efa07cp+1}},
    {{-0x1.efefdce28a129p-3, 0x1.8820ca5f6137ap-3, -0x1.866432c7eaf25p-1, -0x1.487365744e43fp-3}, {0x1.6ca5c193fa914p-2, 0x1.bec108e6b593ep-3, 0x1.b341b1eed6863p+0, 0x1.b095a8afc903cp+1}, {-0x1.88d561be42280p-2, 0x1.812cea903bf85p-1, -0x1.7c3ad3557b562p+1, 0x1.99032ddfc4d9ap-1}},
    {{-0x1.33cc6ecafec97p+1, 0x1.c35c9430f27e1p-3, -0x1.adf087cee04d2p+0, 0x1.e0301a2c95219p-3}, {0x1.d49facd110170p-2, -0x1.c2ebbdcfbe8b6p-1, 0x1.5981216e340d5p-3, -0x1.78977fc5ae760p-1}, {0x1.bc835a63f3420p-2, -0x1.76884a48cc8b2p-1, 0x1.a5597e88af7dap+1, 0x1.67cb74bcbcfd0p+0}},
    {{-0x1.a2ac2e6a367d9p-3, 0x1.9972a19113f43p+0, -0x1.3648ad542a20bp-1, 0x1.897b3732c6c3fp+1}, {0x1.ee85905af30c5p-1, -0x1.f0c22a45e11b8p-1, -0x1.5f4e8b6b59b36p-1, 0x1.be3a6feabfdd6p-3}, {0x1.3d3b01fc55707p+0, -0x1.ae09fb45cb240p+1, -0x1.cb3bfc73f4f14p+1, 0x1.00697354494afp+1}},
    {{-0x1.e271aa1305a8ep-2, 0x1.9f216b797c851p-3, 0x1.51cb8903788e4p-1, 0x1.89dece333193bp+0}, {-0x1.3e94079af8ecdp+1, -0x1.d5b921d07f67fp-2, -0x1.1c5681d860a7ep-1, -0x1.5a703e5a8f829p-1}, {-0x1.a9043a61500cap+1, -0x1.5f91301dd968ap+1, -0x1.291432fe89379p-1, -0x1.c1185ec89d9f0p+0}},
};

struct NormalizeCase { double q[4], result[4]; };
inline constexpr NormalizeCase normalizeCases[] = {
    {{0x1.192a7ae5c237bp-2, -0x1.537209f64c866p-3, -0x1.b8f39b4203a46p+0, -0x1.75f1ce3fad910p-2}, {0x1.3a33459ba0397p-3, -0x1.7b53bcf144252p-4, -0x1.ecc25d4dd618cp-1, -0x1.a1e1276d37176p-3}},
    {{0x1.6fd225648c881p-1, 0x1.8d7017bcda628p+1, -0x1.1130c6b1f3e5ep+0, -0x1.332a0054624b0p-3}, {0x1.b553746d49318p-3, 0x1.d88a1ee53b7b5p-1, -0x1.44d059345a461p-2, -0x1.6d350a7a7ed11p-5}},
    {{-0x1.6af8d3db744a0p+0, -0x1.cc934a7b20f49p-3, 0x1.44dfb5d75a29cp-3, -0x1.bc01c321a0b8ap-2}, {-0x1.e164ea65db24dp-1, -0x1.316bb2371cb45p-3, 0x1.aeddc6140f896p-4, -0x1.266f0465f50c3p-2}},
    {{-0x1.ca1972ad574c3p-2, -0x1.bb0a2b0456692p-3, 0x1.ea286285acbf9p+1, 0x1.52d8f1cfb399bp-1}, {-0x1.d3b6f7ae70e02p-4, -0x1.c456c453e6458p-5, 0x1.f4722a1c88a28p-1, 0x1.59f5af13265bep-3}},
    {{0x1.dd87286bd9feap-3, 0x1.b49d289c487c5p-2, -0x1.908d2d2b1ccfdp+1, -0x1.995daedc87311p+1}, {0x1.a8654202dfe11p-5, 0x1.8408a7748ac62p-4, -0x1.63fbdfaba7634p-1, -0x1.6bd14f0f327d1p-1}},
    {{0x1.d737684ee0137p+0, -0x1.f4b78fa3121b3p-1, 0x1.ea20ef0813b86p-1, 0x1.8bf1a0cd0d8e4p-3}, {0x1.996e878bfbf84p-1, -0x1.b31076da449d7p-2, 0x1.a9dd3f523b1d9p-2, 0x1.58075a8f9759fp-4}},
    {{0x1.0642bf72a06a7p+0, -0x1.7d034dccd9e60p-3, -0x1.f22b936652c2ap+1, -0x1.d5b64f3599351p-2}, {0x1.02b67e21b68d6p-2, -0x1.77dbca0034448p-5, -0x1.eb6e5313bb090p-1, -0x1.cf5b9d0c508fdp-4}},
    {{0x1.49ab018298ea4p-3, 0x1.cde6b0b503211p+0, 0x1.42eddad8e9519p-2, 0x1.a6a5eaba6c5d8p-2}, {0x1.5de101ca06b50p-4, 0x1.ea3808ff5d9a2p-1, 0x1.56ba179a74204p-3, 0x1.c08f33ba82c30p-3}},
};

struct RotatePointCase { double q[4], p[3], result[3]; };
inline constexpr RotatePointCase rotatePointCases[] = {
    {{-0x1.c9846328eb9ccp-1, 0x1.5008c4d4e10cbp-3, 0x1.b08c0d9d19a4ep-2, 0x1.899c591f282b1p-1}, {0x1.fe74d789598dfp+0, -0x1.e15feb3ce2395p-2, -0x1.e2a6476876627p+1}, {0x1.2cc6f695debc9p+2, -0x1.34c0f24cd0456p+2, -0x1.376d9faef5796p+0}},
    {{-0x1.1c4948bb8b252p+1, -0x1.2e3cadc1f41ddp+1, -0x1.9a16325c5e2d1p-1, -0x1.ffe8d7bc40bb6p+0}, {0x1.823a66fff3896p-1, 0x1.9b08e5bd92729p-3, 0x1.69484475ec367p+1}, {0x1.41a4d12f2d1dcp+5, -0x1.a1ba5f07a693ep+1, -0x1.275e7d11534dap+4}},
    {{0x1.f33c6a0310012p+0, -0x1.0039963f5f9a1p-2, 0x1.d02e056740295p+0, -0x1.1497be2f8252bp+0}, {0x1.2815b0b166eeap-3, 0x1.d990977744b0bp-1, 0x1.e611a66de4c85p-3}, {0x1.30c9eef3e5f10p+2, -0x1.55fd4398333fbp+2, -0x1.d38fd4e1231a4p+1}},
    {{-0x1.28b06a855bf6bp-2, -0x1.2105c7abe6497p-3, 0x1.7c3d0dd9db903p-1, -0x1.3a612e16fe776p-2}, {0x1.5ef9e8c8c9f9dp-1, -0x1.ec2b903e67f36p-3, 0x1.cc947635aa4a2p-2}, {-0x1.1b56f33ccc87ap-1, -0x1.38e30d860b7dfp-2, -0x1.a60560e702d93p-4}},
    {{-0x1.b249e192d70e0p-3, 0x1.c2227853ff789p+0, -0x1.365842de65b26p+1, -0x1.21ce8a901474bp-1}, {-0x1.a02afb9b238c2p+0, -0x1.d278c09e5bc98p-3, -0x1.551bd7666e3a9p+0}, {0x1.010db48092aa4p+4, 0x1.201a8ae2083f4p+3, -0x1.c66d8b0491b0cp+2}},
    {{-0x1.b9918c17aaceep-1, -0x1.4858f31c77037p-2, 0x1.d18bd73e0c691p-3, -0x1.0be158aee1591p-2}, {0x1.1c32157ffe03ep+0, -0x1.c57debf659becp+0, 0x1.419e74ead60e5p+0}, {-0x1.7bf32a8084a26p-1, 0x1.ace7edadbfb44p-1, -0x1.09a4fadb696f1p+1}},
    {{-0x1.6359b75a09244p-3, -0x1.5099a8d804d18p-3, 0x1.32e858fd7d71bp-1, -0x1.1d8fe21647e36p-2}, {-0x1.8aa4570bc96e2p-3, 0x1.1789f4914a730p+0, 0x1.2badb3d8145e1p-2}, {0x1.c9adbe7d34b4ep-2, -0x1.5f9b40eb2cda6p-2, 0x1.e71bd615aa5fep-5}},
    {{0x1.817de63d78a60p-3, 0x1.acd5014ed6f98p-3, 0x1.fae6043ee832bp+0, 0x1.00e26d4e51f1ep+1}, {-0x1.6259aefe97e4ap-2, 0x1.c93c14506ebbcp-3, 0x1.44dabddbb51c5p+1}, {0x1.1df0d45d66242p+1, -0x1.48484f97344abp+1, 0x1.45b9e47ba4d47p+4}},
    {{0x1.b1ac7fdcbcf74p-2, 0x1.977faf10c14d5p+1, -0x1.56c12977effb9p+0, 0x1.6bd3715d141e6p-1}, {-0x1.e75a4b164482dp-3, -0x1.5a56148d2bfbdp-3, 0x1.b6dfe057aa231p-3}, {0x1.4fe99bb271a7fp+1, -0x1.ce2749580fdccp+1, 0x1.efd1ec2386d56p-1}},
};

struct DistanceCase { double a[4], b[4], cosineOfHalf; };
inline constexpr DistanceCase distanceCases[] = {
    {{-0x1.eadea42aa22dbp-2, 0x1.db58d4ad22244p-2, 0x1.69ba76f098445p-5, 0x1.7caa44500044ep-1}, {0x1.991e1d89f21b2p-1, -0x1.07e0ff865bc04p-1, -0x1.23b4ca33df40ap-2, 0x1.f121a26ca38bcp-4}, -0x1.16d98ff31fb3fp-1},
    {{-0x1.cf8405a24a398p-4, -0x1.d5f2e27ae1d68p-5, 0x1.e41f2338ffea2p-1, 0x1.32ec81572e1b7p-2}, {0x1.010e7deae3dcdp-3, 0x1.5df7d29c70303p-2, -0x1.bd630bcb133c7p-1, -0x1.54bc5c7276adfp-2}, -0x1.e982b8a907767p-1},
};

struct SetAxisCosAngleCase { double axis[3], cosine, result[4]; };
inline constexpr SetAxisCosAngleCase setAxisCosAngleCases[] = {
    {{0x1.1aece5435ba5ap-3, -0x1.7ce8b30c41c34p+0, 0x1.c5969d32ab938p+0}, 0x1.04c96284d9652p-1, {0x1.e3aba658c8074p-6, -0x1.4596a1874b9c9p-2, 0x1.83b65a002aceep-2, 0x1.bcc8ded1daf8ap-1}},
    {{0x1.45eb9c9742810p+1, 0x1.edcfde68beaedp-2, -0x1.4da4d97497db4p-3}, -0x1.77aeb14625b4ep-1, {0x1.d374820529047p-1, 0x1.6220b944dec25p-3, -0x1.de886268595aep-5, 0x1.759dcdc5727a4p-2}},
    {{0x1.210e224b3b6d7p+0, 0x1.0e32be355eec8p-2, -0x1.2b1a459d08829p-1}, 0x1.51bbde1b28aa6p-1, {0x1.6f5c51c837ed9p-2, 0x1.57652eaece650p-4, -0x1.7c2140b556d6ep-3, 0x1.d26732adf6d6ap-1}},
    {{0x1.57f018037c78cp-3, -0x1.b9f84912c703dp-1, 0x1.daa9955d3a486p-2}, -0x1.e2656232044bep-1, {0x1.54f17ca1896b9p-3, -0x1.b61f2c820fe41p-1, 0x1.d6879a6074f43p-2, 0x1.5c3893434ce93p-3}},
    {{-0x1.a15905e94ae20p-2, -0x1.25060f336ef5cp-2, -0x1.8fc276d8a846cp-1}, -0x1.5252b48801fc0p-3, {-0x1.57fba10ed5252p-2, -0x1.e306f11ce5546p-3, -0x1.497c912eb8f46p-1, 0x1.4ac931efeb72ap-1}},
};

struct UnitAxisCase { double axis[3], result[3]; };
inline constexpr UnitAxisCase unitAxisCases[] = {
    {{0x1.560fdeb28f081p-3, 0x1.6b57fe336c539p+0, -0x1.64a367b568a6cp+1}, {0x1.b4f2fbc2c47adp-5, 0x1.d022670d76a37p-2, -0x1.c791a32cdcd68p-1}},
    {{0x1.72f23346a279cp+0, 0x1.ae9b49e195e1ap-1, -0x1.715014ea29bd9p-2}, {0x1.b0e634293caa9p-1, 0x1.f6861c059a50ep-2, -0x1.aefe40e9017dcp-3}},
    {{-0x1.da38cfe1a6686p-3, 0x1.3fa5e8cf2870bp-3, 0x1.0f173acb3c3d7p-2}, {-0x1.341ac18e539f4p-1, 0x1.9f5aa895179a1p-2, 0x1.604219b78e709p-1}},
};

struct SetFromMatrixCase { double m[9], result[4]; };
inline constexpr SetFromMatrixCase setFromMatrixCases[] = {
    {{0x1.051fdb4731aefp-1, -0x1.8d3daf74e59cep-1, 0x1.7c4d4ee772759p-2, 0x1.b3919fc3acf49p-1, 0x1.099ee3b5bfd37p-1, -0x1.59ed0035ce71fp-4, -0x1.0465ed5ea38dcp-3, 0x1.6fa2f8f5dd19bp-2, 0x1.d968d4995c028p-1}, {0x1.083e8c5475507p-3, 0x1.290d7ff5e1778p-3, 0x1.e499680bdbbe5p-2, 0x1.b7f3249496c5bp-1}},
    {{0x1.e5aefe66989f9p-1, -0x1.2b15e5c27ac3ep-2, 0x1.f31b6a0be3e31p-4, 0x1.ffa91087f8fc5p-5, 0x1.19b8ac8d61253p-1, 0x1.aa53aac25068bp-1, -0x1.3db2402e6a606p-2, -0x1.9084582cd038fp-1, 0x1.1494c388dd174p-1}, {-0x1.da4d8074503bap-2, 0x1.fba1cb214115fp-4, 0x1.a0814ebe5fbdcp-4, 0x1.be47cc11193a0p-1}},
    {{0x1.c94ac96cfa985p-1, -0x1.688e2f31b9a98p-2, -0x1.1e8cb78f6efecp-2, 0x1.96029fc63bb43p-2, 0x1.d1fad7d5b661ep-1, 0x1.ecde36f51bf57p-4, 0x1.b2d118714dce0p-3, -0x1.bf5528e5793e9p-3, 0x1.e7ab1b86f7d41p-1}, {-0x1.65fc50492e528p-4, -0x1.040b3765c7575p-3, 0x1.8b8cd29abcf89p-3, 0x1.f01f13571e344p-1}},
    {{0x1.12951a0ce7940p-1, -0x1.ad6d673676ee5p-2, 0x1.77074b5c6abefp-1, 0x1.aad34b1f8e59fp-7, 0x1.be61f0c4321e3p-1, 0x1.f55da1e56840ap-2, -0x1.b017c7419ad3cp-1, -0x1.031c0fe2adb15p-2, 0x1.e460c7835ed1ap-2}, {-0x1.c0063097795b2p-3, 0x1.db814c2f99ea9p-2, 0x1.04d981263bc35p-3, 0x1.b288ae6e93d97p-1}},
    {{0x1.f4d60690c9a71p-1, 0x1.9a1b7bee3ce0dp-3, -0x1.c3306c4aa266cp-5, -0x1.5c2978d7a6841p-4, 0x1.41877faf333e8p-1, 0x1.8c110a82a981bp-1, 0x1.8414b90a959f0p-3, -0x1.8108bb1c95c34p-1, 0x1.433bc2568cb52p-1}, {-0x1.b21ccf1ec4a91p-2, -0x1.165f8c5c3ab9dp-4, -0x1.44acadb5ffc1dp-4, 0x1.cc9f3f5edb7d1p-1}},
    {{0x1.e73895612614ep-1, -0x1.38d668ea24dedp-2, 0x1.11979b5eb67d3p-5, 0x1.35fdb9439d100p-2, 0x1.e6ad619aa5966p-1, 0x1.1c9f3597261a0p-4, -0x1.b1f7ba5079512p-5, -0x1.cadf2764e0871p-5, 0x1.fe79d9b445559p-1}, {-0x1.0454bf2bc47f5p-5, 0x1.66533ad6da24dp-6, 0x1.3b6a4a831c5a2p-3, 0x1.f98171d51b82ap-1}},
    {{0x1.13ea10860b0c3p-2, 0x1.ecb56f12c48c3p-1, -0x1.2b34c64b67e00p-5, 0x1.eb1b879a084e9p-1, -0x1.1613ebd6d8876p-2, -0x1.42931e89f1660p-4, -0x1.5f0c1b73a427ap-4, -0x1.c4a6ea08e28f8p-7, -0x1.fe1127b1519c2p-1}, {0x1.97c647d1a1d94p-1, 0x1.34d1a2c8f45bap-1, -0x1.3a4ea7d34a02fp-5, 0x1.4dfadc2a7990ap-6}},
    {{0x1.ac638fd1b8cfcp-4, -0x1.fcb699955afa6p-1, 0x1.61571fb75c2f3p-5, -0x1.b4146d06830d3p-1, -0x1.12d17d5b54e57p-4, 0x1.0a14646eb4f73p-1, -0x1.06e3c215ae65ap-1, -0x1.7519cfa691de9p-4, -0x1.b4df81a729ff2p-1}, {0x1.6c4a2d67434eep-1, -0x1.4bf87689696a1p-1, -0x1.52724c9383845p-3, -0x1.b7841a3f2d10dp-3}},
    {{0x1.52cd1935cc0aep-2, 0x1.673a9bc36d16cp-1, 0x1.431cc98574942p-1, 0x1.38871763dc888p-1, -0x1.569702c1e48d6p-1, 0x1.b210725222040p-2, 0x1.7079b0cf02802p-1, 0x1.f5b04c9be1583p-3, -0x1.4c9fed4732d35p-1}, {0x1.a0b59d2a9b614p-1, 0x1.9caf5812dc5bep-2, 0x1.a8de324b728b9p-2, -0x1.c23c2ca18c45cp-5}},
    {{0x1.d749615aa18c4p-2, -0x1.93cbe63d9f115p-1, -0x1.a17155b280392p-2, -0x1.b6b0a80e9347dp-1, -0x1.0797260b2856ap-1, 0x1.d5839f8b31babp-6, -0x1.dc1b1e0eecf3ap-3, 0x1.582ab04867d53p-2, -0x1.d34b5aa37ec3ap-1}, {0x1.b307d22f3cabdp-1, -0x1.efc5f7d493b81p-2, -0x1.81bc60a21ec5cp-3, 0x1.7285f03d85cd0p-4}},
    {{0x1.ff3bbb2e970f9p-1, 0x1.479eec7120170p-5, 0x1.31b49727eb8d2p-5, 0x1.5267e1aecabd9p-5, -0x1.ff3ebc9296681p-1, -0x1.205e935ee00c6p-5, 0x1.25b8f574d44bcp-5, 0x1.2c90f14b91620p-5, -0x1.ff53843152debp-1}, {0x1.ffb9bb0c927abp-1, 0x1.4d3122247f7c3p-6, 0x1.2bdfeebfab90ep-6, 0x1.26a03258d0879p-6}},
    {{0x1.f8c79c47e528dp-1, 0x1.55542679d1b5ep-3, -0x1.ed617d3a34fb8p-7, 0x1.63c366758fc94p-4, -0x1.2c4f8088cb839p-1, -0x1.9c4950919f84dp-1, -0x1.24f0afd96b7ddp-3, 0x1.95cd7c500e706p-1, -0x1.2f7cbf391f2b4p-1}, {0x1.c772ff46b8c8bp-1, 0x1.23d6ceb78d1edp-4, -0x1.6bfa6de5b1b9dp-5, 0x1.cbd5673fa7a5bp-2}},
    {{0x1.ed8b53574b017p-1, -0x1.ecd7b5fac08fap-3, -0x1.d0ee34c16a1dfp-4, 0x1.cd9af63d82f15p-4, -0x1.197a8d91b45fdp-6, 0x1.fca97e23db94fp-1, -0x1.ed9f7d98a0ef6p-3, -0x1.f0e027387ca3dp-1, 0x1.5a0058c1fc732p-7}, {0x1.675d993f4702ap-1, -0x1.75564f79a0c51p-5, -0x1.029edf359a823p-3, -0x1.6627e54e75805p-1}},
    {{-0x1.d8c210f6d8215p-3, -0x1.9b30859febb16p-1, -0x1.193e9b36f0796p-1, -0x1.1e2331975c605p-1, 0x1.24a5a3053e655p-1, -0x1.339d6659ac8a1p-1, 0x1.97cca4636b9dbp-1, 0x1.58abb8d8dd29bp-3, -0x1.295a52c3724d9p-1}, {-0x1.c3b54697f81bbp-2, 0x1.8b33988839d6dp-1, -0x1.1ee4ddc1e2383p-3, -0x1.be57b2eb687cdp-2}},
    {{-0x1.a744ed1bc3342p-1, -0x1.176256c67d3a6p-1, -0x1.18e8d4d501003p-3, -0x1.fc3a7bd64d7e8p-2, 0x1.a4e62b8e51c68p-1, -0x1.1dc0a6d77b51ep-2, 0x1.0f640670c70f0p-2, -0x1.4d0ab1a6cad58p-3, -0x1.e69e9c60f042ap-1}, {-0x1.1935b29e73a0ep-2, 0x1.e5abea061b6cap-1, -0x1.dcca95d3c4ac8p-4, -0x1.b22bf951e9cabp-4}},
    {{0x1.2df08705d8b6cp-4, -0x1.f350ffd43344fp-1, -0x1.ab20a4a5e746dp-3, -0x1.057967fecefb8p-3, 0x1.95de5aadbdfa4p-3, -0x1.f191c377c70ffp-1, 0x1.fa67af59818f1p-1, 0x1.927ea4f99f8d5p-4, -0x1.c227fe2f8be7ep-4}, {-0x1.fc42384224580p-2, 0x1.1c6bc7d9bcb02p-1, -0x1.9290b26b0b3eep-2, -0x1.13f4ff1e1a878p-1}},
    {{-0x1.a0f72b364b84fp-1, 0x1.1822a89606a67p-4, -0x1.270e02b16fb4dp-1, 0x1.aacd6d0f4e969p-3, 0x1.ec2a031575f71p-1, -0x1.7182b59767fd4p-3, 0x1.154e40b1a4af1p-1, -0x1.1170d559112d0p-2, -0x1.981c0420787bap-1}, {0x1.2be79c9f87721p-4, 0x1.e3e200fb851ecp-1, -0x1.e4d2139a0a9c3p-4, -0x1.2ecf3372531c5p-2}},
    {{-0x1.fb7840396f6afp-1, 0x1.83a0e3bb07e20p-5, -0x1.fbefd9e04520ep-4, 0x1.4009be5eed56dp-5, 0x1.fe6b17c02ca8bp-1, 0x1.171ca82d4b9dbp-4, 0x1.03c99f830d9dbp-3, 0x1.00cc77275d6e2p-4, -0x1.fad950e18ad34p-1}, {0x1.62cf6bea01435p-6, 0x1.fe9714284f89fp-1, 0x1.0cb1f6bc498b5p-5, -0x1.019658d609776p-4}},
    {{-0x1.477d7ff34c68ep-1, -0x1.547f0b2965c5bp-2, 0x1.62d6731ec1411p-1, -0x1.10732a8d77435p-3, 0x1.df2b614b48c9bp-1, 0x1.4e1363a178bb1p-2, -0x1.83a084327c41ap-1, 0x1.dd19b012094dap-4, -0x1.49239f6a726e2p-1}, {-0x1.09bbef76676e6p-3, 0x1.cb42230324b47p-1, 0x1.f969fbdd42debp-4, 0x1.9ddd6f4413063p-2}},
    {{-0x1.146610db5e1fap-1, -0x1.71d8884e6aa83p-1, 0x1.ba8be2591dc45p-2, 0x1.5899b5e5a4bffp-1, -0x1.5b855d3dad1e2p-1, -0x1.2cd2ae77f14c2p-2, 0x1.02d7111781443p-1, 0x1.0eead680be148p-3, 0x1.b487a92c53d73p-1}, {0x1.11f6489919e05p-2, -0x1.7970bfd2a4b0cp-5, 0x1.c0a29ed04693ap-1, 0x1.97ad504186bdbp-2}},
    {{-0x1.e1645e14e6649p-1, -0x1.28b0ce3162e68p-4, 0x1.54c3c23094d51p-2, -0x1.ccb5b670c1c60p-3, -0x1.33fc965a697e5p-1, -0x1.887500bec0e21p-1, 0x1.05d6305343b3cp-2, -0x1.9752f36128bb9p-1, 0x1.193b59123222dp-1}, {0x1.56c01f3c082fcp-3, -0x1.c6e73e5086c22p-2, 0x1.c21517cb1d119p-1, -0x1.635619fc605f8p-5}},
    {{-0x1.506a877ac5688p-1, -0x1.bb46aef0c1bd3p-2, 0x1.3bfb80d1dc3bep-1, 0x1.074dd0352b3fdp-2, -0x1.cbec3614a1ebap-1, -0x1.6cdf068699d7bp-2, 0x1.6ad11ec5a41b7p-1, -0x1.34f9ecd6dc890p-4, 0x1.67303a9077582p-1}, {0x1.7821b4f2fbaf1p-2, -0x1.e9f6bca7f73b2p-4, 0x1.cdffdaf0ae114p-1, 0x1.87867d628cfc1p-3}},
    {{-0x1.eedaae35032fdp-1, -0x1.e5854991d378ep-3, 0x1.926a96afcdc0ap-4, 0x1.003f133925480p-2, -0x1.e9398d4b77954p-1, 0x1.3fad9f8a21867p-3, 0x1.d1e2e675c5c1ep-5, 0x1.6752d61412ce0p-3, 0x1.f7375ffe6ba47p-1}, {0x1.4186a67201660p-5, 0x1.579c7e71f5264p-4, 0x1.f9e013ff0a253p-1, 0x1.f90c5cc76f29ap-4}},
};

struct GetRotationMatrixCase { double q[4], result[9]; };
inline constexpr GetRotationMatrixCase getRotationMatrixCases[] = {
    {{-0x1.168e747a9138fp-4, -0x1.7cf589bb291a6p-3, 0x1.9274ade3dfbddp-1, -0x1.2bd1314cd4886p-1}, {-0x1.38428a28002cep-2, 0x1.e44b5ae505c78p-1, 0x1.c66982b5469adp-4, -0x1.ca62f0d37107cp-1, -0x1.f5bc387ad7488p-3, -0x1.7d029aa6f36f2p-2, -0x1.4c8fb5030dafbp-2, -0x1.b3c93350c957cp-3, 0x1.d7d4fb68b8b8bp-1}},
    {{-0x1.7673cbc4de5bdp-3, 0x1.170f54bdb1879p-4, -0x1.7c3d8dc0b5311p-1, -0x1.47fed50da0a89p-1}, {-0x1.cc3caa7bc2554p-4, -0x1.f3ee9695c0ff0p-1, 0x1.7968bc0defe2cp-3, 0x1.da6bac98c1b0ap-1, -0x1.5c08d174d4a86p-3, -0x1.5780caa5083d8p-2, 0x1.6f798d607723cp-2, 0x1.1083ba53c9131p-3, 0x1.d903cd953f06ep-1}},
    {{-0x1.7c43f27adbd04p-5, -0x1.c2688fd80df50p-3, 0x1.a37754620d307p-1, -0x1.0e16c9fc0fe3fp-1}, {-0x1.c1ae243e24786p-2, 0x1.c5015d3c64830p-1, 0x1.3f6d425e9f99ep-3, -0x1.b019073059ac8p-1, -0x1.63095f44d7678p-2, -0x1.a327bbb3ad230p-2, -0x1.3b7bbee27f501p-2, -0x1.3edb5acca1920p-2, 0x1.cc43e9ef8e5a8p-1}},
    {{0x1.7a567862be13fp-1, 0x1.238d0498f54a0p-1, 0x1.adde57a627d47p-3, -0x1.2bb0815ba5f76p-2}, {0x1.0db1d56083174p-2, 0x1.edc815923c630p-1, -0x1.7a8f882d71ae0p-6, 0x1.6ff950f5abfa0p-1, -0x1.71029f9a92085p-3, 0x1.57d80ed1ac0cbp-1, 0x1.497a3c62d38dfp-1, -0x1.8c3f29a5c2148p-3, -0x1.7b2d5eda8280dp-1}},
    {{-0x1.f2a6d0c36239ap-1, 0x1.24b4698cb8546p-3, -0x1.a6e4cbfc9ada3p-4, 0x1.24573a0744ab8p-3}, {0x1.e02ae28d22f58p-1, -0x1.fdc80ef901e51p-3, 0x1.ef6eb4088dc41p-3, -0x1.3b41a985aa5edp-2, -0x1.d637cd5f94f5ap-1, 0x1.fcff4ddac69d8p-3, 0x1.484df201c58c3p-3, -0x1.3af086ea5ebfcp-2, -0x1.e03831ea6ba80p-1}},
    {{-0x1.1543ad0de4f02p-2, 0x1.4a64c092699adp-4, -0x1.cb78ecb655dc6p-2, 0x1.b219008b4493bp-1}, {0x1.2b2ba9e256a4bp-1, 0x1.6f328ac9cb190p-1, 0x1.84e16c7123f3ap-2, -0x1.9bed564c6602cp-1, 0x1.cd84cfd3a34cep-2, 0x1.8c07f8d42b011p-2, 0x1.b3078bbf0ab8ep-4, -0x1.1023d32a34fecp-1, 0x1.ae437ec67725dp-1}},
    {{-0x1.6639b86082824p-5, -0x1.839bbcbb2cbc2p-2, -0x1.5bfc03d54bc57p-3, 0x1.d14f9f2cda720p-1}, {0x1.4fb79e8143c68p-1, 0x1.5e26b1f95b692p-2, -0x1.58a77464090bcp-1, -0x1.1a5a4c20c0acap-2, 0x1.e07a67db91fcep-1, 0x1.aa38669396304p-3, 0x1.67defb7cd4b4ap-1, 0x1.92a51566b8daap-5, 0x1.6b52abac4eb02p-1}},
    {{0x1.1124f7434df8ep-2, -0x1.258ccb0f86458p-1, 0x1.bf447a0e19e0ap-2, 0x1.479460dad25d0p-1}, {-0x1.3f7a363d76aecp-5, -0x1.bac49e4b592fdp-1, -0x1.0052d4e3399fcp-1, 0x1.031e2cd66f45ep-2, 0x1.e78ff75ed4f26p-2, -0x1.af31f23c48f0ap-1, 0x1.eeef22c8a7decp-1, -0x1.46b5a6bc1b1d2p-3, 0x1.9a21ca4aec543p-3}},
};

} // namespace exact_figures
// clang-format on
