#pragma once

namespace zolt {

/// The file dialogs' filters for pictures.
inline constexpr char kPictureFilter[] =
    "Image files |*.bmp;*.gif;*.jpg;*.jpeg;*.jpe;*.jfif;*.ico;*.cur|Bitmap (*.bmp)|*.bmp|GIF (*.gif)|*.gif|"
    "JPEG (*.jpg,*.jpeg,*.jpe,*.jfif)|*.jpg;*.jpeg;*.jpe;*.jfif|Icon (*.ico)|*.ico|Cursor (*.cur)|*.cur|"
    "All files (*.*)|*.*|";
inline constexpr char kZoltImageFilter[] = "ZOLT Image File (*.zli)|*.zli|All files (*.*)|*.*|";
inline constexpr char kGrobFilter[] = "ASCII GROB (*.grb,*.gro)|*.grb;*.gro|All files (*.*)|*.*|";
inline constexpr char kHpImageFilter[] =
    "HP image files |*.gro;*.grb;*.zli|ASCII GROB (*.grb,*.gro)|*.grb;*.gro|ZOLT image file (*.zli)|*.zli|"
    "All files (*.*)|*.*|";
inline constexpr char kBitmapFilter[] =
    "2 Color Bitmap (1 bit) (*.bmp)|*.bmp|16 Color Bitmap (4 bit) (*.bmp)|*.bmp|"
    "256 Color Bitmap (8 bit) (*.bmp)|*.bmp|16K Bitmap (24 bit) (*.bmp)|*.bmp|GIF (*.gif)|*.gif|";

/// Texts of pictures are far smaller; a file above this size is none. In bytes.
inline constexpr unsigned long long kLargestImageText = 64ULL << 20;

} // namespace zolt
